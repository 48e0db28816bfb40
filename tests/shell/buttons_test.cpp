// Presets, macros, the command history and the function-key row in the real window, with
// the device's side of the line.
#include "shell/CommandHistory.h"
#include "tests/shell/ShellRig.h"

namespace {

class ButtonsTest : public ShellRig {
  protected:
    ButtonsTest() { BuildWindow(); }

    static void SavePreset(const QString& nickname, const QString& spec) {
        SetGadgetText(kNicknameEntry, nickname);
        SetGadgetText(kSpecEntry, spec);
        SaveDevicePreset();
    }
    void Submit(const QString& text, bool cr = false) {
        SetGadgetText(kCommandEntry, text);
        SubmitCommandBar(cr);
        EXPECT_EQ(GadgetText(kCommandEntry), "");
    }
    static void NameMacro(const QString& label) {
        answer = label;
        SaveMacro();
    }
    static QString Bar() { return GadgetText(kCommandEntry); }
};

TEST_F(ButtonsTest, PresetsAreSavedUpToTheirLimit) {
    SavePreset("  ", "s\\cmm2");
    EXPECT_TRUE(presetList.empty());
    const char* const specs[][2] = {{" port\\tty0:9600 ", "'target port\\tty0:9600"},
                                    {"", ""},
                                    {"'TARGET x", "'TARGET x"},
                                    {"' onload", "' onload"}};
    for (const auto& [spec, stored] : specs) {
        SavePreset(" Desk ", spec);
        EXPECT_EQ(presetList.at(0).nickname + presetList[0].spec, "Desk" + QString(stored));
    }
    AddPreset({"Desk", "twin"});
    SavePreset("Desk", "'target both");
    EXPECT_EQ(presetList[1].spec, "'target both");
    SavePreset("desk", "");  // another name
    for (int i = 3; i < 14; ++i) SavePreset(QString("p%1").arg(i), "x");
    ASSERT_EQ(presetList.size(), 12u);
    EXPECT_EQ(GadgetText(kLastPresetButton), "p11");
    SavePreset("p11", "y");  // a name that is there still takes a new specification
    EXPECT_EQ(presetList[11].spec, "'target y");
}

TEST_F(ButtonsTest, ANoticeTellsThatAPresetDoesNotMoveTheLink) {
    AddPreset({"One", "'target s\\cmm2"});
    AddPreset({"Two", "'target s\\picomite"});
    PresetButtonClicked(kFirstPresetButton + 1);
    PresetButtonClicked(kFirstPresetButton + 2);  // there is none
    EXPECT_EQ(shellSettings.lastUsedPreset, 1);
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
    ConnectDevice();
    PresetButtonClicked(kFirstPresetButton + 1);  // the same one: no notice
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
    PresetButtonClicked(kFirstPresetButton);
    EXPECT_TRUE(WindowIsOpen(kNoticeWindow));
    EXPECT_TRUE(linkStatus.linkConnected);
}

TEST_F(ButtonsTest, MacrosAreNamedUpToTheirLimit) {
    AddMacro({"Go", "RUN\\013"});
    SetGadgetText(kCommandEntry, "not stored");
    NameMacro("");
    for (int i = 1; i < 12; ++i) NameMacro(QString("m%1").arg(i));
    ASSERT_EQ(macroList.size(), 10u);
    EXPECT_EQ(macroList[9].label + "," + macroList[9].text, "m9,");
    EXPECT_EQ(GadgetText(kLastMacroButton), "m9");
    NameMacro("go");
    EXPECT_EQ(macroList[0].text, "RUN\\013");
    NameMacro("Go");  // empties it, with the list full
    EXPECT_EQ(macroList[0].text, "");
}

TEST_F(ButtonsTest, HistoryKeepsEachCommandOnce) {
    HistoryPrevious();
    HistoryNext();
    EXPECT_EQ(Bar(), "");
    Submit("a", true);
    Submit("b");
    Submit("");
    EXPECT_EQ(device.Read(), "a\rb");
    Submit("a");
    EXPECT_EQ(historyList, (std::vector<QString>{"b", "a"}));
    HistoryPrevious();
    EXPECT_EQ(Bar(), "a");
    HistoryPrevious();
    HistoryPrevious();  // stays at the oldest
    EXPECT_EQ(Bar(), "b");
    for (int i = 0; i < 3; ++i) HistoryNext();
    EXPECT_EQ(Bar(), "");
    AdoptSerialLink(0);  // no link, and remembered all the same
    for (int i = 0; i < 30; ++i) Submit(QString::number(i));
    EXPECT_EQ(historyList.size(), 30u);
    EXPECT_EQ(historyList.front(), "0");
}

}  // namespace

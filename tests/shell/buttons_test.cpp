// Presets, macros and the command history, up to their limits; and the texts of macros.
#include "shell/MacroText.h"
#include "tests/shell/ShellRig.h"

namespace {

class ButtonsTest : public ShellRig {
  protected:
    ButtonsTest() { BuildWindow(); }

    // All presets when one more was saved.
    static QString Saved(const QString& nickname, const QString& spec) {
        SetGadgetText(kNicknameEntry, nickname);
        SetGadgetText(kSpecEntry, spec);
        SaveDevicePreset();
        QString all;
        for (const PresetEntry& preset : presetList) all += preset.nickname + preset.spec + '|';
        return all;
    }
    // All macros when one more was named.
    static QString Named(const QString& label) {
        answer = label;
        SaveMacro();
        QString all;
        for (const MacroEntry& macro : macroList) all += macro.label + macro.text + '|';
        return all;
    }
    // What went out, stands in the bar and is remembered.
    std::string Submitted(const QString& text, bool cr = false) {
        SetGadgetText(kCommandEntry, text);
        SubmitCommandBar(cr);
        QString all = GadgetText(kCommandEntry) + ':';
        for (const QString& command : historyList) all += command + '|';
        return device.Read() + all.toStdString();
    }
};

TEST_F(ButtonsTest, PresetsAreSavedUpToTheirLimit) {
    EXPECT_EQ(Saved("  ", "s\\cmm2"), "");
    EXPECT_EQ(Saved(" Desk ", " port\\tty0:9600 "), "Desk'target port\\tty0:9600|");
    for (const QString spec : {"", "'TARGET x", "' onload", "'Onload y"})
        EXPECT_EQ(Saved("Desk", spec), "Desk" + spec + '|');
    AddPreset({"Desk", "twin"});
    Saved("Desk", "'target both");
    Saved("desk", "");  // another name
    for (int i = 3; i < 12; ++i) Saved(QString("p%1").arg(i), "");
    EXPECT_EQ(GadgetText(kLastPresetButton), "p11");
    Saved("p12", "");
    EXPECT_EQ(Saved("p11", "y"),  // a name that is there still takes a new specification
              "Desk'target both|Desk'target both|desk|p3|p4|p5|p6|p7|p8|p9|p10|p11'target y|");
}

TEST_F(ButtonsTest, MacrosAreNamedUpToTheirLimit) {
    AddMacro({"Go", "RUN\\013"});
    SetGadgetText(kCommandEntry, "not stored");
    EXPECT_EQ(Named(""), "GoRUN\\013|");
    EXPECT_EQ(Named("Go"), "Go|");  // empties it
    for (int i = 1; i < 10; ++i) Named(QString("m%1").arg(i));
    EXPECT_EQ(Named("go"), "Go|m1|m2|m3|m4|m5|m6|m7|m8|m9|");
    EXPECT_EQ(GadgetText(kLastMacroButton), "m9");
}

TEST_F(ButtonsTest, HistoryKeepsEachCommandOnce) {
    for (const auto step : {HistoryPrevious, HistoryNext}) step();  // of none
    using Texts = std::vector<std::string>;
    EXPECT_EQ((Texts{Submitted("a", true), Submitted("b"), Submitted(""), Submitted("a")}),
              (Texts{"a\r:a|", "b:a|b|", ":a|b|", "a:b|a|"}));
    AdoptSerialLink(0);  // no link, and remembered all the same
    std::string all = ":";
    for (int i = 0; i < 31; ++i) {
        if (i > 0) all += std::to_string(i) + '|';
        if (i < 30) Submitted(QString::number(i));
    }
    EXPECT_EQ(Submitted("30"), all);
}

TEST(MacroText, Expands) {
    VirtualClock clock;
    const std::pair<const char*, QString> rows[] = {
        {"", ""},
        {"abc", "ab"},  // a plain last character is dropped
        {"\\", ""},
        {"a\\r", "a"},  // and so is a code of one letter
        {"\\r.", "\r"},
        {"\\c\\C\\b\\B\\t\\T\\n\\N\\v\\V\\f\\F\\r\\R\\e\\E.",
         "\3\3\b\b\t\t\n\n\v\v\f\f\r\r\x1b\x1b"},
        {"\\q\\Q\\\\\\z\\|.", "\"\"\\z|"},
        {"\\027[12~.", "\x1b[12~"},
        {"\\300", QString(QChar(44))},  // one byte: 300 less 256
        {"\\1a2z.", "\1z"},             // three characters are taken, the number ends earlier
        {"\\7", ""},
        {"\\XfFz", QString(QChar(255))},
        {"\\x4", "\4"},
        {"\\d \\h.", "04/03/2026 05:06:07"},
        {"\u00E4\\\u00F6\u20AC.", "\u00E4\u00F6\u20AC"},
    };
    for (const auto& [text, expanded] : rows) EXPECT_EQ(ExpandMacroText(text), expanded) << text;
}

}  // namespace

// LoadSettings and SaveSettings on files that were written by hand.
#include "shell/Settings.h"

#include <gtest/gtest.h>

#include <QDir>
#include <cstdlib>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "filemanager/FileManagerSettings.h"
#include "help/HelpSettings.h"
#include "link/Connection.h"
#include "link/LinkSettings.h"
#include "shell/CommandHistory.h"
#include "shell/Macros.h"
#include "shell/Presets.h"
#include "shell/SettingsTable.h"
#include "shell/ShellSettings.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/shell/scratch_folder.h"
#include "ui/Drawing.h"
#include "ui/Gadgets.h"
#include "ui/TextEntryGadget.h"
#include "ui/Windows.h"
#include "upload/DeviceFamily.h"
#include "upload/UploadOptions.h"

namespace {

constexpr char kFile[] = "KWCC.inf";
constexpr char kMark[] = "\xEF\xBB\xBF\n";

class SettingsTest : public testing::Test {
  protected:
    SettingsTest() { setenv("HOME", "/home/nobody", 1); }

    static void Load(const QByteArray& text) {
        ScratchFolder::Put(kFile, text);
        LoadSettings();
    }
    // A settings file that was written by hand.
    static QByteArray Written(const QString& name) {
        return ScratchFolder::Get(KWCC_SOURCE_DIR "/tests/shell/" + name);
    }
    static std::string Saved() {
        SaveSettings();
        return ScratchFolder::Get(kFile).toStdString();
    }

    ScratchFolder scratch;
};

struct HeldNumber {
    const char* key;
    int value;
};

void OpenDeviceEntries(const char* nickname, const char* spec) {
    OpenNumberedWindow(kMainWindow, 0, 0, 200, 100, "Test", kStandardWindowFlags);
    TextEntryGadget(kNicknameEntry, 0, 0, 9, 9, nickname);
    TextEntryGadget(kSpecEntry, 0, 0, 9, 9, spec);
}

}  // namespace

TEST_F(SettingsTest, EachKeyHasItsVariableAndTheFileItsBytes) {
    // No value of it is the default, and no two numbers are alike, so that no key can stand
    // for another.
    const QByteArray file = Written("stored_settings.inf");
    ASSERT_FALSE(file.isEmpty());
    Load(file);
    const TerminalSettings& vt = terminalSettings;
    const FileManagerSettings& files = fileManagerSettings;
    const LinkSettings& link = linkSettings;
    // clang-format off
    const HeldNumber numbers[] = {
        {"MainX", mainWindowPlace.x}, {"MainY", mainWindowPlace.y},
        {"MainW", mainWindowPlace.width}, {"MainH", mainWindowPlace.height},
        {"Preset group", shellSettings.presetGroup}, {"Button height", mainWindowPlace.contentTop},
        {"HelpX", helpSettings.x}, {"HelpY", helpSettings.y}, {"HelpW", helpSettings.width},
        {"HelpH", helpSettings.height}, {"FontSize", helpSettings.fontSize}, {"FileX", files.x},
        {"FileY", files.y}, {"FileW", files.width}, {"FileH", files.height},
        {"Splitter", files.splitter}, {"Column1", files.columns[0]}, {"Column2", files.columns[1]},
        {"Column3", files.columns[2]}, {"Device on TCPIP", linkStatus.deviceOnTcpip},
        {"LineDelay", link.lineDelay}, {"Maximum com port", link.maximumComPort},
        {"Maximum IP length", link.maximumIpLength},
        {"Serial polling interval", link.pollingInterval},
        {"Comms buffer size", link.commsBufferSize},
        {"Override file settings", uploadSettings.overrideFileSettings},
        {"IP control port", link.controlPort}, {"IP data port", link.dataPort},
        {"KWedit control port", link.editorPort}, {"Debug mode", link.debugMode},
        {"Use XMODEM for Drag&Drop", uploadSettings.useXmodemForDrop},
        {"Warn when copying to flash", uploadSettings.warnFlashCopy},
        {"Advise when copied to clipboard", vt.adviseCopied}, {"Font size", vt.fontSize},
        {"Extra Char Pixels", vt.extraCharPixels}, {"Extra Line Pixels", vt.extraLinePixels},
        {"VT Terminal dark background", terminalScreen.darkBackground},
        {"Characters per line", vt.cols}, {"Number of rows", vt.rows},
        {"Default Characters per line", vt.defaultCols}, {"Default Number of rows", vt.defaultRows},
        {"Tab stops", vt.tabStops}, {"Auto resize window", vt.allowResize},
        {"Scroll back buffer", vt.scrollBack}, {"Maximum line length", vt.maxLineLength},
        {"Wordwrap", vt.wordWrap}, {"VT Mode", terminalMode},
        {"Autosave end delay", uploadSettings.autosaveEndDelay}, {"VT width", vt.canvasWidth},
        {"VT height", vt.canvasHeight}, {"VT100 Function keys", inputSettings.vt100FunctionKeys},
        {"XTERM Function keys", inputSettings.xtermFunctionKeys}, {"XTERM mouse", vt.xtermMouse},
        {"Mouse scroll rate", inputSettings.mouseScrollRate},
        {"Click X shift", inputSettings.clickXShift}, {"Click Y shift", inputSettings.clickYShift},
        {"LastUsed", shellSettings.lastUsedPreset},
    };
    // clang-format on
    for (const HeldNumber& held : numbers) {
        const QByteArray line =
            "\n" + QByteArray(held.key) + " = " + QByteArray::number(held.value);
        EXPECT_TRUE(file.contains(line + "\n")) << line.constData();
    }
    EXPECT_EQ(mainWindowPlace.linesToShow, "101010");
    EXPECT_EQ(files.pcFolder, "/srv/");
    EXPECT_EQ(link.comPort + link.serialSpeed + link.tcpAddress + link.tcpPort, "TCPIP9600board23");
    EXPECT_EQ(shellSettings.device + uploadSettings.picoPort, "cmm2ttyACM1");
    EXPECT_EQ(lineEnding.bytes, "\n");
    EXPECT_EQ(link.welcomeMessage + uploadSettings.textTypes, "Gr\u00FC\u00DF dichbas");
    EXPECT_EQ(vt.fontName, "Courier");
    const uint32_t colours[] = {0x010203, 0x0A0B0C, 0x112233, 0x445566,
                                0x778899, 0xAABBCC, 0xDDEEFF, 0xF0F1F2};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(vt.palette[i], colours[i]);
    EXPECT_EQ(terminalScreen.curFg, 0u);
    EXPECT_EQ(terminalScreen.curBg, 0xFFFFFFu);
    EXPECT_EQ(deviceFamilies.size(), 2u);
    EXPECT_EQ(presetList.at(1).spec, "x|y");
    EXPECT_EQ(macroList.at(0).text, "PRINT 2\\r");
    EXPECT_EQ(historyIndex, 2);
    EXPECT_EQ(shellSettings.activeDevice, "Desk|'target s\\pico");

    OpenDeviceEntries("Desk", "'target s\\pico");
    EXPECT_EQ(Saved(), file.toStdString());
}

TEST_F(SettingsTest, NothingStoredGivesTheDefaults) {
    LoadSettings();
    // A mere load creates the file.
    EXPECT_EQ(ScratchFolder::Get(kFile),
              QByteArray(kMark) + "[Windows]\n; Help Window\n; File Window\n");
    EXPECT_EQ(Saved(), Written("default_settings.inf").toStdString());
    EXPECT_EQ(historyIndex, 0);
}

TEST_F(SettingsTest, NumbersObeyTheirRules) {
    const struct {
        const char* line;
        const int& variable;
        int value;
    } rows[] = {
        {"[Windows]\nMainX = -201", mainWindowPlace.x, 0},
        {"[Windows]\nMainY = -1", mainWindowPlace.y, 0},
        {"[windows]\nMAINW = -5", mainWindowPlace.width, -5},
        {"[Windows]\nHelpX = -1", helpSettings.x, 0},
        {"[Windows]\nHelpY = -1", helpSettings.y, 0},
        {"[Windows]\nFileX = -1", fileManagerSettings.x, 0},
        {"[Windows]\nFileY = -1", fileManagerSettings.y, 0},
        {"[Device]\nLineDelay = 99", linkSettings.lineDelay, 100},
        {"[Device]\nLineDelay = 100", linkSettings.lineDelay, 100},
        {"[Device]\nLineDelay = 999999", linkSettings.lineDelay, 999999},
        {"[Device]\nComms buffer size = 1", linkSettings.commsBufferSize, 2048},
        {"[Device]\nComms buffer size = 100000", linkSettings.commsBufferSize, 65536},
        {"[Device]\nSerial polling interval = 5", linkSettings.pollingInterval, 10},
        {"[Device]\nSerial polling interval = 500", linkSettings.pollingInterval, 100},
        {"[VTterminal]\nFont size = twelve", terminalSettings.fontSize, 0},
    };
    for (const auto& row : rows) {
        Load(row.line);
        EXPECT_EQ(row.variable, row.value) << row.line;
    }
    EXPECT_GT(TextWidthOf(kTerminalEntryFont, "W"), 0);  // of size 0, and usable all the same
    Load(
        "[Colours]\nVT Red = FF0000\nVT Green = $12345678\nVT Blue = blue\n[VTterminal]\nVT "
        "Mode=9");
    EXPECT_EQ(terminalSettings.palette[1], 0xFF0000u);
    EXPECT_EQ(terminalSettings.palette[2], 0x345678u);
    EXPECT_EQ(terminalSettings.palette[4], 0xBu);  // the B is a digit, the rest is none
    EXPECT_EQ(terminalMode, kModeFileManager);
    Load("[Device]\nLine ending = lf");
    EXPECT_EQ(lineEnding.bytes, "\r\n");
    EXPECT_EQ(lineEnding.name, "lf");
}

TEST_F(SettingsTest, LoadingAddsItsTwoCommentsBehindWhatItRead) {
    Load("[Windows]\nMainH = 5\nMainX = 1\nFontSize = 3\n; mine\nother = 1\n");
    EXPECT_EQ(ScratchFolder::Get(kFile),
              QByteArray(kMark) +
                  "[Windows]\nMainH = 5\n; Help Window\nMainX = 1\nFontSize = 3\n"
                  "; File Window\n; mine\nother = 1\n");
}

TEST_F(SettingsTest, ListsSkipGapsAndKeepTheirLimits) {
    QByteArray text =
        "[Device types]\nType0=\nType2 = a|autostart|e|1|2|3|f|4|5\nType30= b |AUTOSTART\n"
        "Type29=|x\nType31=c|d\n[myDeviceList]\nDevice3= n | s \nDevice4=bare\nDevice12=no|no\n"
        "[Macros]\nMacro1= l | t|cut\nMacro10=no|no\n[Command History]\n";
    for (int i = 2; i < 40; ++i) text += "Cmd" + QByteArray::number(i) + "=c\n";
    Load(text);
    ASSERT_EQ(deviceFamilies.size(), 3u);
    EXPECT_EQ(deviceFamilies[0].autostart, "autosave");
    EXPECT_EQ(deviceFamilies[0].ninth, 5);
    EXPECT_EQ(deviceFamilies[0].flash + deviceFamilies[0].fnstart, 0);
    EXPECT_EQ(deviceFamilies[2].autostart, "AUTOSTART");
    ASSERT_EQ(presetList.size(), 2u);
    EXPECT_EQ(presetList[0].nickname + "," + presetList[0].spec, "n , s");
    EXPECT_EQ(presetList[1].nickname + "," + presetList[1].spec, "bare,");
    ASSERT_EQ(macroList.size(), 1u);
    EXPECT_EQ(macroList[0].label + "," + macroList[0].text, "l , t");
    EXPECT_EQ(historyIndex, 29);
    const QByteArray saved = QByteArray::fromStdString(Saved());
    EXPECT_TRUE(
        saved.contains("flash|fnstart\nType0 = a|autosave|e|1|2|3|f|4|5|0|0\n"
                       "Type1 = b|AUTOSTART||0|0|0||0|0|0|0\n\n[myDevice"));
    EXPECT_TRUE(saved.contains("\nDevice = |\nDevice0 = n | s\n\n[Command History]\nCmd0 = c\n"));
    EXPECT_TRUE(saved.endsWith("\nCmd28 = c\n\n[Macros]\nMacro0 = l | t\n"));
}

TEST_F(SettingsTest, FilesThatCannotBeUsedDoNoHarm) {
    QDir().mkdir(kFile);  // a folder of that name
    LoadSettings();
    EXPECT_EQ(mainWindowPlace.width, 900);
    EXPECT_EQ(deviceFamilies.size(), 7u);
    SaveSettings();
    EXPECT_TRUE(QDir(kFile).exists());
    QDir().rmdir(kFile);
    Load("");
    EXPECT_EQ(deviceFamilies.size(), 7u);  // once, although it was loaded before
    QByteArray garbage;
    for (int i = 0; i < 100000; ++i) garbage += static_cast<char>(i * 7919 >> 3);
    Load(garbage);
    EXPECT_EQ(mainWindowPlace.width, 900);
}

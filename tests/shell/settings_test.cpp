// LoadSettings and SaveSettings on files that were written by hand.
#include "tests/shell/ShellRig.h"

namespace {

constexpr char kFile[] = "KWCC.inf";
constexpr char kMark[] = "\xEF\xBB\xBF\n";

using Numbers = std::vector<int>;

class SettingsTest : public testing::Test {
  protected:
    SettingsTest() { qputenv("HOME", "/home/nobody"); }

    static void Load(const QByteArray& text) {
        ScratchFolder::Put(kFile, text);
        LoadSettings();
    }
    // A settings file that was written by hand.
    static QByteArray Defaults() {
        return ScratchFolder::Get(KWCC_SOURCE_DIR "/tests/shell/default_settings.inf");
    }
    // With what the two entries of the device hold.
    static std::string Saved(const char* nickname = "", const char* spec = "") {
        OpenNumberedWindow(kMainWindow, 0, 0, 200, 100, "Test", kStandardWindowFlags);
        TextEntryGadget(kNicknameEntry, 0, 0, 9, 9, nickname);
        TextEntryGadget(kSpecEntry, 0, 0, 9, 9, spec);
        SaveSettings();
        return ScratchFolder::Get(kFile).toStdString();
    }
    // What the file holds of some keys when a text was loaded and saved.
    static std::string Kept(const QByteArray& text, const QString& keys) {
        Load(text);
        QStringList kept;
        for (const QString& line : QString::fromStdString(Saved()).split('\n')) {
            if (keys.split(',').contains(line.section(" = ", 0, 0))) kept += line.section(" = ", 1);
        }
        return kept.join(' ').toStdString();
    }

    ScratchFolder scratch;
};

// The defaults with another value behind each key, and with lists. A number grows by its
// line, so that neighbours differ.
QByteArray ChangedDefaults(const QByteArray& defaults) {
    QByteArrayList lines = defaults.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const int at = lines[i].indexOf(" = ") + 3;
        if (at < 3 || lines[i][0] == ';' || lines[i].contains('|')) continue;
        const QByteArray value = lines[i].mid(at);
        bool number = false;
        const int grown = value.toInt(&number) + i;
        lines[i].truncate(at);
        if (value[0] == '$') {
            const uint32_t colour = 0xFFFFFF - value.mid(1).toUInt(nullptr, 16);
            lines[i] += '$' + QByteArray::number(colour, 16).toUpper().rightJustified(6, '0');
        } else {
            lines[i] += number ? QByteArray::number(grown) : value + "\xC3\xA4";
        }
    }
    return lines.join('\n').replace("\nDevice = |", "\nDevice = Desk|'target s\\pico") +
           "Device0 = A|first\nDevice1 = B|x|y\n\n[Command History]\nCmd0 = PRINT 1\n"
           "Cmd1 = PRINT \"=\"\n\n[Macros]\nMacro0 = Hi|PRINT 2\\r\nMacro1 = empty|\n";
}

TEST_F(SettingsTest, EachKeyHasItsVariableAndTheFileItsBytes) {
    QByteArray file = ChangedDefaults(Defaults());
    file.replace("background = 61\n", "background = 0\n");
    file.replace("VT Mode = 70\n", "VT Mode = 2\n").replace("TCPIP = 31\n", "TCPIP = 1\n");
    Load(file);
    // One of each pair that could stand for each other both ways.
    const TerminalSettings& vt = terminalSettings;
    const FileManagerSettings& files = fileManagerSettings;
    const InputSettings& input = inputSettings;
    EXPECT_EQ((Numbers{mainWindowPlace.y, mainWindowPlace.height, helpSettings.y,
                       helpSettings.width, files.y, files.width, files.columns[1],
                       linkSettings.dataPort, vt.rows, vt.extraLinePixels, vt.defaultRows,
                       vt.canvasWidth, input.clickYShift, input.xtermFunctionKeys}),
              (Numbers{203, 705, 211, 712, 217, 718, 112, 50944, 112, 60, 114, 986, 85, 76}));
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(vt.palette[i] + TerminalSettings().palette[i], 0xFFFFFFu) << i;
    EXPECT_EQ(terminalScreen.curFg, 0u);
    EXPECT_EQ(terminalScreen.curBg, 0xFFFFFFu);
    EXPECT_EQ(presetList.at(1).spec, "x|y");
    EXPECT_EQ(macroList.at(0).text, "PRINT 2\\r");
    EXPECT_EQ(historyIndex, 2);
    EXPECT_EQ(Saved("Desk", "'target s\\pico"), file.toStdString());
}

// The group is written where it was read, and then whole; elsewhere there is no trace of it.
TEST_F(SettingsTest, ChoicesAreKeptWhereTheFileHasThem) {
    const Choices& c = choices;
    const auto held = [&] {
        return Numbers{c.keysActOnce, c.brightWhite,   c.localPorts,    c.telnetLineEnds,
                       c.followCable, c.readAsItComes, c.altOpensMenus, c.replaceWhenComplete};
    };
    const QByteArray group =
        "\n[Choices]\nKeys act once = 1\nBright white = 2\n"
        "Local ports for this machine only = 3\nTelnet line ends = 4\nFollow the cable = 5\n"
        "Read as it comes = 6\nAlt opens menus = 7\nReplace files when complete = 8\n";
    Load("[choices]" + QByteArray(group).remove(0, 10).toLower());
    EXPECT_EQ(held(), (Numbers{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(Saved(), (Defaults() + group).toStdString());
    Load("[Choices]\nBright white = 1\n");
    EXPECT_EQ(held(), (Numbers{0, 1, 0, 0, 0, 0, 0, 0}));
    EXPECT_NE(Saved().find("\nAlt opens menus = 0\nReplace files when complete = 0\n"),
              std::string::npos);
    Load("[Macros]\nBright white = 1\n");
    EXPECT_EQ(held(), Numbers(8, 0));
    EXPECT_EQ(Saved(), Defaults().toStdString());
}

TEST_F(SettingsTest, NothingStoredGivesTheDefaults) {
    LoadSettings();
    // A mere load creates the file.
    EXPECT_EQ(ScratchFolder::Get(kFile),
              QByteArray(kMark) + "[Windows]\n; Help Window\n; File Window\n");
    Load("[Windows]\nMainH = 700\nLines to show = 111111\n");  // which is read behind them
    EXPECT_EQ(ScratchFolder::Get(kFile),
              QByteArray(kMark) +
                  "[Windows]\nMainH = 700\n"
                  "; Help Window\n; File Window\nLines to show = 111111\n");
    LoadSettings();  // the default families are there once, although it was loaded before
    SetLineEnding("LF");
    EXPECT_EQ(Saved(), Defaults().replace("ending = CRLF", "ending = LF").toStdString());
}

TEST_F(SettingsTest, NumbersObeyTheirRules) {
    EXPECT_EQ(Kept("[windows]\nMainX = -201\nMAINW = -5\nHelpY = -1\nFileX = -1\n"
                   "[Device]\nLineDelay = 99\nComms buffer size = 1\n"
                   "Serial polling interval = 5\n[VTterminal]\nFont size = twelve\n",
                   "MainX,MainW,HelpY,FileX,LineDelay,Comms buffer size,"
                   "Serial polling interval,Font size"),
              "0 -5 0 0 100 10 2048 0");
    EXPECT_EQ(Kept("[Windows]\nMainX = -200\n[Colours]\nVT Green = $12345678\nVT Blue = "
                   "blue\n[VTterminal]\nVT Mode=9\n"
                   "[Device]\nComms buffer size = 100000\nSerial polling interval = 500",
                   "MainX,VT Green,VT Blue,VT Mode,Comms buffer size,Serial polling interval"),
              "-200 100 65536 0 $345678 $00000B");  // the B is a digit, the rest is none
}

TEST_F(SettingsTest, ListsSkipGapsAndKeepTheirLimits) {
    QByteArray text =
        "[Device types]\nType0=\nType2 = a|autostart|e|1|2|3|f|4|5\nType30= b |AUTOSTART\n"
        "Type29=|x\nType31=c|d\n[myDeviceList]\nDevice3= n | s \nDevice4=bare\nDevice12=no|no\n"
        "[Macros]\nMacro1= l | t|cut\nMacro10=no|no\n[Command History]\n";
    for (int i = 2; i < 40; ++i) text += QString("Cmd%1=%1\n").arg(i).toLatin1();
    EXPECT_EQ(
        Kept(text, "Type0,Type1,Type2,Device,Device0,Device1,Cmd0,Cmd28,Cmd29,Macro0,Macro1"),
        "micromite a|autosave|e|1|2|3|f|4|5|0|0 b|AUTOSTART||0|0|0||0|0|0|0 | n | s 2 30 l | t");
    EXPECT_EQ(deviceFamilies.size(), 3u);
    EXPECT_EQ(presetList.at(1).nickname + "," + presetList[1].spec, "bare,");
}

}  // namespace

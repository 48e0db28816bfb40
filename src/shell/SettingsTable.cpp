#include "shell/SettingsTable.h"

#include "base/Choices.h"
#include "base/DocumentsFolder.h"
#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "filemanager/FileManagerSettings.h"
#include "help/HelpSettings.h"
#include "link/Connection.h"
#include "link/LinkSettings.h"
#include "shell/SettingsLists.h"
#include "shell/ShellSettings.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/ColourScheme.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/UploadOptions.h"

namespace {

// The owners' records. Rows hold addresses alone, so it does not matter which of these
// is constructed first.
MainWindowPlace& place = MainWindowPlaceForTable();
HelpSettings& help = HelpSettingsForTable();
FileManagerSettings& files = FileManagerSettingsForTable();
ShellSettings& shell = ShellSettingsForTable();
LinkSettings& link = LinkSettingsForTable();
UploadSettings& upload = UploadSettingsForTable();
TerminalSettings& terminal = TerminalSettingsForTable();
InputSettings& input = InputSettingsForTable();
Choices& chosen = ChoicesForTable();
QString lineEndingName;  // on its way between the file and base/LineEnding.h

constexpr NumberRule kNotNegative = {0, 0, INT_MAX};
constexpr NumberRule kMainLeft = {-200, 0, INT_MAX};  // a window half off the left edge stays
constexpr NumberRule kLineDelay = {kShortestLineDelay, kShortestLineDelay, INT_MAX};
constexpr NumberRule kPolling = {kShortestPolling, kShortestPolling, kLongestPolling};
constexpr NumberRule kBuffer = {kSmallestCommsBuffer, kSmallestCommsBuffer, kLargestCommsBuffer};

using Group = GroupSetting;
using Comment = CommentSetting;
using Number = NumberSetting;
using Text = TextSetting;
using Colour = ColourSetting;
using List = ListSetting;

constexpr CommentSetting kAtLoadToo = {true};
constexpr ReadTurn kLate = ReadTurn::kEndOfGroup;

// clang-format off
const std::vector<SettingRow> rows = {
    {"Windows", Group{}},
    {"MainX",  Number{&place.x,      200, kMainLeft}},
    {"MainY",  Number{&place.y,      200, kNotNegative}},
    {"MainW",  Number{&place.width,  900}},
    {"MainH",  Number{&place.height, 700}},
    {"Lines to show", Text{&place.linesToShow, "111111"}, kLate},
    {"Preset group",  Number{&shell.presetGroup, 0}, kLate},
    {"Button height", Number{&place.contentTop, 25}, kLate},

    {"Help Window", kAtLoadToo},
    {"HelpX",    Number{&help.x,        200, kNotNegative}},
    {"HelpY",    Number{&help.y,        200, kNotNegative}},
    {"HelpW",    Number{&help.width,    700}},
    {"HelpH",    Number{&help.height,   287}},
    {"FontSize", Number{&help.fontSize, 10}},

    {"File Window", kAtLoadToo},
    {"FileX",    Number{&files.x,          200, kNotNegative}},
    {"FileY",    Number{&files.y,          200, kNotNegative}},
    {"FileW",    Number{&files.width,      700}},
    {"FileH",    Number{&files.height,     287}},
    {"Splitter", Number{&files.splitter,   300}},
    {"Column1",  Number{&files.columns[0], 250}},
    {"Column2",  Number{&files.columns[1], 90}},
    {"Column3",  Number{&files.columns[2], 130}},
    {"PC start folder", Text{&files.pcFolder, "", DocumentsFolder}},

    {"Device", Group{}},
    {"Comport",         Text{&link.comPort,       "not set"}},
    {"SerialSpeed",     Text{&link.serialSpeed,   "38400"}},
    {"TCPIP address",   Text{&link.tcpAddress,    "localhost"}},
    {"TCPIP port",      Text{&link.tcpPort,       "3001"}},
    {"Device on TCPIP", Number{&link.deviceOnTcpip, 0}},
    {"Device",          Text{&shell.device,       "micromite"}},
    {"PicoPort",        Text{&upload.picoPort,    "not set"}},
    {"LineDelay",               Number{&link.lineDelay,       120, kLineDelay}},
    {"Maximum com port",        Number{&link.maximumComPort,  32}},
    {"Maximum IP length",       Number{&link.maximumIpLength, 25}},
    {"Line ending",               Text{&lineEndingName,       "CRLF"}},
    {"Serial polling interval", Number{&link.pollingInterval, 50,    kPolling}},
    {"Comms buffer size",       Number{&link.commsBufferSize, 16384, kBuffer}},
    {"Override file settings",  Number{&upload.overrideFileSettings, 0}},

    {"Network", Group{}},
    {"IP control port",     Number{&link.controlPort, 50899}},
    {"IP data port",        Number{&link.dataPort,    50900}},
    {"KWedit control port", Number{&link.editorPort,  6832}},
    {"Welcome message",       Text{&link.welcomeMessage, "Welcome to KWCC"}},

    {"General", Group{}},
    {"TextTypes",                         Text{&upload.textTypes, "bas txt inc"}},
    {"Use XMODEM for Drag&Drop",        Number{&upload.useXmodemForDrop, 1}},
    {"Debug mode",                      Number{&link.debugMode, 0}},
    {"Warn when copying to flash",      Number{&upload.warnFlashCopy, 1}},
    {"Advise when copied to clipboard", Number{&terminal.adviseCopied, 1}},

    {"VTterminal", Group{}},
    {"Font Name",                     Text{&terminal.fontName, "Liberation Mono"}},
    {"Font size",                   Number{&terminal.fontSize, 9}},
    {"Extra Char Pixels",           Number{&terminal.extraCharPixels, 1}},
    {"Extra Line Pixels",           Number{&terminal.extraLinePixels, 1}},
    {"VT Terminal dark background", Number{&terminal.darkBackground, 1}},
    {"Characters per line",         Number{&terminal.cols, 101}},
    {"Number of rows",              Number{&terminal.rows, 50}},
    {"Default Characters per line", Number{&terminal.defaultCols, 101}},
    {"Default Number of rows",      Number{&terminal.defaultRows, 50}},
    {"Tab stops",                   Number{&terminal.tabStops, 8}},
    {"Auto resize window",          Number{&terminal.allowResize, 1}},
    {"Scroll back buffer",          Number{&terminal.scrollBack, 1024}},
    {"Maximum line length",         Number{&terminal.maxLineLength, 256}},
    {"Wordwrap",                    Number{&terminal.wordWrap, 0}},
    {"VT Mode",                     Number{&terminal.terminalMode, 0}},
    {"Autosave end delay",          Number{&upload.autosaveEndDelay, 1500}},
    {"Don't change these two values:", Comment{}},
    {"VT width",             Number{&terminal.canvasWidth, 913}},
    {"VT height",            Number{&terminal.canvasHeight, 654}},
    {"VT100 Function keys",  Number{&input.vt100FunctionKeys, 0}},
    {"XTERM Function keys",  Number{&input.xtermFunctionKeys, 0}},
    {"XTERM mouse",          Number{&terminal.xtermMouse, 1}},
    {"Mouse scroll rate",    Number{&input.mouseScrollRate, 1}},
    {"Click X shift",        Number{&input.clickXShift, 5}},
    {"Click Y shift",        Number{&input.clickYShift, 5}},

    {"Colours", Group{}},
    {"The Terminal colours. Format is 24bit HEX in BBGGRR order.", Comment{}},
    {"VT Black",   Colour{&terminal.palette[0], 0x000000}},
    {"VT Red",     Colour{&terminal.palette[1], 0x0000CD}},
    {"VT Green",   Colour{&terminal.palette[2], 0x00CD00}},
    {"VT Yellow",  Colour{&terminal.palette[3], 0x00E1E1}},
    {"VT Blue",    Colour{&terminal.palette[4], 0xE10000}},
    {"VT Magenta", Colour{&terminal.palette[5], 0xCD00CD}},
    {"VT Cyan",    Colour{&terminal.palette[6], 0xCDCD00}},
    {"VT White",   Colour{&terminal.palette[7], 0xFFFFFF}},

    // The comment names ten columns, a row has eleven: the ninth has no name.
    {"Device types", Group{}},
    {"FamilyList\\ Fname|autostart|autoend|autoName|drives|xmName|filesCMD|filesAll|flash|fnstart", Comment{}},
    {"Type", List{LoadFamilies, SaveFamilies}},

    {"myDeviceList", Group{}},
    {"LastUsed", Number{&shell.lastUsedPreset, 0}},
    {"Device",     Text{&shell.activeDevice, ""}},
    {"Device", List{LoadPresets, SavePresets}},

    {"Command History", Group{}},
    {"Cmd", List{LoadHistory, SaveHistory}},

    {"Macros", Group{}},
    {"Macro", List{LoadMacros, SaveMacros}},

    {"Choices", Group{&chosen.inFile}},
    {"Keys act once",                     Number{&chosen.keysActOnce,         0}},
    {"Bright white",                      Number{&chosen.brightWhite,         0}},
    {"Local ports for this machine only", Number{&chosen.localPorts,          0}},
    {"Telnet line ends",                  Number{&chosen.telnetLineEnds,      0}},
    {"Follow the cable",                  Number{&chosen.followCable,         0}},
    {"Read as it comes",                  Number{&chosen.readAsItComes,       0}},
    {"Alt opens menus",                   Number{&chosen.altOpensMenus,       0}},
    {"Replace files when complete",       Number{&chosen.replaceWhenComplete, 0}},
};
// clang-format on

}  // namespace

const std::vector<SettingRow>& settingsTable = rows;

void TakeLiveValues() {
    lineEndingName = lineEnding.name;
    terminal.terminalMode = terminalMode;
    shell.activeDevice = GadgetText(kNicknameEntry) + "|" + GadgetText(kSpecEntry);
}

void GiveLiveValues() {
    SetSchemeColours();
    SetLineEnding(lineEndingName);
    SetTerminalMode(terminal.terminalMode);
    SetDeviceOnTcpip(link.deviceOnTcpip != 0);
}

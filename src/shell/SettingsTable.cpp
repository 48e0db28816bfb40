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

constexpr NumberRule kFree = {};
constexpr NumberRule kNotNegative = {0, 0, INT_MAX};
constexpr NumberRule kMainLeft = {-200, 0, INT_MAX};  // a window half off the left edge stays
constexpr NumberRule kLineDelay = {kShortestLineDelay, kShortestLineDelay, INT_MAX};
constexpr NumberRule kPolling = {kShortestPolling, kShortestPolling, kLongestPolling};
constexpr NumberRule kBuffer = {kSmallestCommsBuffer, kSmallestCommsBuffer, kLargestCommsBuffer};

SettingRow Row(SettingKind kind, const char* name) {
    SettingRow row;
    row.kind = kind;
    row.name = name;
    return row;
}

SettingRow Group(const char* name, int* found = nullptr) {
    SettingRow row = Row(SettingKind::kGroup, name);
    row.number = found;
    return row;
}

SettingRow Comment(const char* text) {
    return Row(SettingKind::kComment, text);
}

SettingRow BothComment(const char* text) {
    return Row(SettingKind::kBothComment, text);
}

SettingRow Number(const char* key, int* number, int fallback, NumberRule rule = kFree) {
    SettingRow row = Row(SettingKind::kNumber, key);
    row.number = number;
    row.fallback = fallback;
    row.rule = rule;
    return row;
}

SettingRow Text(const char* key, QString* text, const char* fallback,
                QString (*ifEmpty)() = nullptr) {
    SettingRow row = Row(SettingKind::kText, key);
    row.text = text;
    row.fallbackText = fallback;
    row.ifEmpty = ifEmpty;
    return row;
}

SettingRow Colour(const char* key, uint32_t* colour, uint32_t fallback) {
    SettingRow row = Row(SettingKind::kColour, key);
    row.colour = colour;
    row.fallback = fallback;
    return row;
}

SettingRow List(const char* prefix, void (*load)(), void (*save)()) {
    SettingRow row = Row(SettingKind::kList, prefix);
    row.load = load;
    row.save = save;
    return row;
}

SettingRow ReadLate(SettingRow row) {
    row.turn = ReadTurn::kEndOfGroup;
    return row;
}

// clang-format off
const std::vector<SettingRow> rows = {
    Group("Windows"),
    Number("MainX",  &place.x,      200, kMainLeft),
    Number("MainY",  &place.y,      200, kNotNegative),
    Number("MainW",  &place.width,  900),
    Number("MainH",  &place.height, 700),
    ReadLate(Text("Lines to show", &place.linesToShow, "111111")),
    ReadLate(Number("Preset group",  &shell.presetGroup, 0)),
    ReadLate(Number("Button height", &place.contentTop, 25)),

    BothComment("Help Window"),
    Number("HelpX",    &help.x,        200, kNotNegative),
    Number("HelpY",    &help.y,        200, kNotNegative),
    Number("HelpW",    &help.width,    700),
    Number("HelpH",    &help.height,   287),
    Number("FontSize", &help.fontSize, 10),

    BothComment("File Window"),
    Number("FileX",    &files.x,          200, kNotNegative),
    Number("FileY",    &files.y,          200, kNotNegative),
    Number("FileW",    &files.width,      700),
    Number("FileH",    &files.height,     287),
    Number("Splitter", &files.splitter,   300),
    Number("Column1",  &files.columns[0], 250),
    Number("Column2",  &files.columns[1], 90),
    Number("Column3",  &files.columns[2], 130),
    Text("PC start folder", &files.pcFolder, "", DocumentsFolder),

    Group("Device"),
    Text("Comport",         &link.comPort,       "not set"),
    Text("SerialSpeed",     &link.serialSpeed,   "38400"),
    Text("TCPIP address",   &link.tcpAddress,    "localhost"),
    Text("TCPIP port",      &link.tcpPort,       "3001"),
    Number("Device on TCPIP", &link.deviceOnTcpip, 0),
    Text("Device",          &shell.device,       "micromite"),
    Text("PicoPort",        &upload.picoPort,    "not set"),
    Number("LineDelay",               &link.lineDelay,       120, kLineDelay),
    Number("Maximum com port",        &link.maximumComPort,  32),
    Number("Maximum IP length",       &link.maximumIpLength, 25),
    Text("Line ending",               &lineEndingName,       "CRLF"),
    Number("Serial polling interval", &link.pollingInterval, 50,    kPolling),
    Number("Comms buffer size",       &link.commsBufferSize, 16384, kBuffer),
    Number("Override file settings",  &upload.overrideFileSettings, 0),

    Group("Network"),
    Number("IP control port",     &link.controlPort, 50899),
    Number("IP data port",        &link.dataPort,    50900),
    Number("KWedit control port", &link.editorPort,  6832),
    Text("Welcome message",       &link.welcomeMessage, "Welcome to KWCC"),

    Group("General"),
    Text("TextTypes",                         &upload.textTypes, "bas txt inc"),
    Number("Use XMODEM for Drag&Drop",        &upload.useXmodemForDrop, 1),
    Number("Debug mode",                      &link.debugMode, 0),
    Number("Warn when copying to flash",      &upload.warnFlashCopy, 1),
    Number("Advise when copied to clipboard", &terminal.adviseCopied, 1),

    Group("VTterminal"),
    Text("Font Name",                     &terminal.fontName, "Liberation Mono"),
    Number("Font size",                   &terminal.fontSize, 9),
    Number("Extra Char Pixels",           &terminal.extraCharPixels, 1),
    Number("Extra Line Pixels",           &terminal.extraLinePixels, 1),
    Number("VT Terminal dark background", &terminal.darkBackground, 1),
    Number("Characters per line",         &terminal.cols, 101),
    Number("Number of rows",              &terminal.rows, 50),
    Number("Default Characters per line", &terminal.defaultCols, 101),
    Number("Default Number of rows",      &terminal.defaultRows, 50),
    Number("Tab stops",                   &terminal.tabStops, 8),
    Number("Auto resize window",          &terminal.allowResize, 1),
    Number("Scroll back buffer",          &terminal.scrollBack, 1024),
    Number("Maximum line length",         &terminal.maxLineLength, 256),
    Number("Wordwrap",                    &terminal.wordWrap, 0),
    Number("VT Mode",                     &terminal.terminalMode, 0),
    Number("Autosave end delay",          &upload.autosaveEndDelay, 1500),
    Comment("Don't change these two values:"),
    Number("VT width",             &terminal.canvasWidth, 913),
    Number("VT height",            &terminal.canvasHeight, 654),
    Number("VT100 Function keys",  &input.vt100FunctionKeys, 0),
    Number("XTERM Function keys",  &input.xtermFunctionKeys, 0),
    Number("XTERM mouse",          &terminal.xtermMouse, 1),
    Number("Mouse scroll rate",    &input.mouseScrollRate, 1),
    Number("Click X shift",        &input.clickXShift, 5),
    Number("Click Y shift",        &input.clickYShift, 5),

    Group("Colours"),
    Comment("The Terminal colours. Format is 24bit HEX in BBGGRR order."),
    Colour("VT Black",   &terminal.palette[0], 0x000000),
    Colour("VT Red",     &terminal.palette[1], 0x0000CD),
    Colour("VT Green",   &terminal.palette[2], 0x00CD00),
    Colour("VT Yellow",  &terminal.palette[3], 0x00E1E1),
    Colour("VT Blue",    &terminal.palette[4], 0xE10000),
    Colour("VT Magenta", &terminal.palette[5], 0xCD00CD),
    Colour("VT Cyan",    &terminal.palette[6], 0xCDCD00),
    Colour("VT White",   &terminal.palette[7], 0xFFFFFF),

    // The comment names ten columns, a row has eleven: the ninth has no name.
    Group("Device types"),
    Comment("FamilyList\\ Fname|autostart|autoend|autoName|drives|xmName|filesCMD|filesAll|"
            "flash|fnstart"),
    List("Type", LoadFamilies, SaveFamilies),

    Group("myDeviceList"),
    Number("LastUsed", &shell.lastUsedPreset, 0),
    Text("Device",     &shell.activeDevice, ""),
    List("Device", LoadPresets, SavePresets),

    Group("Command History"),
    List("Cmd", LoadHistory, SaveHistory),

    Group("Macros"),
    List("Macro", LoadMacros, SaveMacros),

    Group("Choices", &chosen.inFile),
    Number("Keys act once",                     &chosen.keysActOnce,         0),
    Number("Bright white",                      &chosen.brightWhite,         0),
    Number("Local ports for this machine only", &chosen.localPorts,          0),
    Number("Telnet line ends",                  &chosen.telnetLineEnds,      0),
    Number("Follow the cable",                  &chosen.followCable,         0),
    Number("Read as it comes",                  &chosen.readAsItComes,       0),
    Number("Alt opens menus",                   &chosen.altOpensMenus,       0),
    Number("Replace files when complete",       &chosen.replaceWhenComplete, 0),
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

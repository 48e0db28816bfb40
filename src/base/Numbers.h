// The design numbers of the program: every window, gadget, menu item, timer,
// shortcut and posted event is addressed by one of these. Code names them; a bare
// number stands nowhere else.
#pragma once

#include <cstdint>

// Windows.
constexpr int kMainWindow = 0;
constexpr int kHelpWindow = 155;
constexpr int kFileManagerWindow = 161;
constexpr int kNoticeWindow = 183;

// Window flags, summed in the call that opens a window.
constexpr int kWindowSizable = 2;
constexpr int kWindowClose = 4;
constexpr int kWindowMaximize = 16;
constexpr int kWindowMinimize = 32;
constexpr int kWindowCentredOnParent = 256;
constexpr int kStandardWindowFlags =
    kWindowSizable + kWindowClose + kWindowMaximize + kWindowMinimize;                // 54
constexpr int kHelpWindowFlags = kWindowSizable + kWindowMaximize + kWindowMinimize;  // 50

// In a resize of a window or gadget, what stays as it is.
constexpr int kKeep = -65535;
constexpr int Kept(int wanted, int present) {
    return wanted == kKeep ? present : wanted;
}

// Gadgets of the main window.
constexpr int kTerminalCanvas = 24;
constexpr int kScratchImage = 25;  // the strip that a scroll moves; an image, not a gadget
constexpr int kFrameCanvas = 26;
constexpr int kTerminalScrollBar = 27;
constexpr int kFamilyTextUnused = 32;    // routed, never created
constexpr int kUploadButtonUnused = 34;  // routed, never created
constexpr int kTouchButtonUnused = 35;   // routed, never created
constexpr int kProgressText = 37;
constexpr int kPortCombo = 39;
constexpr int kAddressEntry = 41;
constexpr int kSpeedCombo = 42;
constexpr int kFamilyCombo = 43;
constexpr int kNicknameEntry = 45;
constexpr int kSpecEntry = 46;
constexpr int kSavePresetButton = 47;
constexpr int kOptionsCombo = 48;
constexpr int kMouseButton = 49;
constexpr int kOverrideCheck = 50;
constexpr int kCommandEntry = 53;
constexpr int kSendButton = 54;
constexpr int kSendCrButton = 55;
constexpr int kClearCommandButton = 56;
constexpr int kConnectButton = 62;
constexpr int kDisconnectButton = 63;
constexpr int kSaveMacroButton = 74;
constexpr int kFirstMacroButton = 75;  // to 84
constexpr int kLastMacroButton = 84;
constexpr int kFirstPresetButton = 92;  // to 103; the routes reach 107
constexpr int kLastPresetButton = 103;
constexpr int kLastPresetRoute = 107;
constexpr int kFirstFunctionKeyButton = 117;  // routed, never created
constexpr int kLastFunctionKeyButton = 128;
constexpr int kControlByteBase = 130;  // a control button sends its number less this
constexpr int kEscButton = 130;
constexpr int kFirstControlButton = 131;
constexpr int kCtrlCButton = 133;
constexpr int kCtrlZButton = 145;
constexpr int kLastControlButton = 145;
constexpr int kClsButton = 146;
constexpr int kRunButton = 147;
constexpr int kIdleButton = 148;  // routed to nothing
constexpr int kHistoryPreviousButton = 152;
constexpr int kHistoryNextButton = 153;
constexpr int kFirstToolbarRow = 201;  // to 206
constexpr int kToolbarRows = 6;
constexpr int kTerminalSizeText = 208;
constexpr int kModeText = 210;

// Gadgets of the help window.
constexpr int kHelpWebView = 156;
constexpr int kHelpEditorIndexButton = 157;
constexpr int kHelpBasicIndexButton = 158;
constexpr int kHelpBackButton = 159;
constexpr int kHelpForwardButton = 160;

// Gadgets of the file manager window.
constexpr int kPcList = 162;
constexpr int kDeviceList = 163;
constexpr int kPaneSplitter = 164;
constexpr int kPcToolbar = 166;
constexpr int kDeviceToolbar = 167;
constexpr int kCopyToDeviceButton = 168;
constexpr int kCopyToPcButton = 169;
constexpr int kDeviceDeleteButton = 170;
constexpr int kDeviceNewFolderButton = 171;
constexpr int kPcDeleteButton = 172;
constexpr int kPcNewFolderButton = 173;
constexpr int kFlashViewButton = 174;
constexpr int kDeviceRefreshButton = 178;
constexpr int kAbortTransferButton = 179;
constexpr int kPcPathEntry = 180;
constexpr int kFamilyNameText = 181;
constexpr int kEditFileButton = 182;

// Gadget of the notice window. The design leaves it without a number; this one lies
// beyond all others.
constexpr int kNoticeText = 65536;

// Fonts with fixed numbers.
constexpr int kInterfaceFont = 57;
constexpr int kTerminalEntryFont = 58;

// Menus.
constexpr int kMainMenu = 3;
constexpr int kPopupMenu = 64;

// Menu items and shortcuts.
constexpr int kItemAllowResize = 7;
constexpr int kItemTerminalFont = 8;
constexpr int kItemDarkBackground = 9;
constexpr int kItemLineEndingCrLf = 10;
constexpr int kItemLineEndingCr = 11;
constexpr int kItemLineEndingLf = 12;
constexpr int kItemSetTime = 13;
constexpr int kItemSetRtc = 14;
constexpr int kItemClearScreen = 15;
constexpr int kItemNew = 16;
constexpr int kItemListAll = 17;
constexpr int kItemStartCapture = 18;
constexpr int kItemEndCapture = 19;
constexpr int kItemSendListing = 20;
constexpr int kItemOptionList = 21;
constexpr int kItemFiles = 22;
constexpr int kItemRun = 23;
constexpr int kItemTerminalSize = 28;
constexpr int kItemDefaultTerminalSize = 29;
constexpr int kItemWordWrap = 30;
constexpr int kShortcutAddressReturn = 41;
constexpr int kItemAbout = 51;
constexpr int kItemHelp = 52;
constexpr int kShortcutCommandReturn = 53;
constexpr int kItemCopyAll = 65;
constexpr int kItemCopyVisible = 66;
constexpr int kShortcutAltC = 67;
constexpr int kItemSaveAll = 68;
constexpr int kItemSaveVisible = 69;
constexpr int kItemAutosaveCode = 70;
constexpr int kItemPasteText = 71;
constexpr int kItemPasteSlowly = 72;
constexpr int kShortcutF10 = 126;
constexpr int kShortcutShiftF10 = 129;
constexpr int kShortcutCtrlC = 133;  // routed, never registered
constexpr int kShortcutCtrlZ = 145;  // routed, never registered
constexpr int kShortcutHistoryPrevious = 150;
constexpr int kShortcutHistoryNext = 151;
constexpr int kShortcutLineEnding = 154;  // routed, never registered
constexpr int kFirstViewItem = 185;       // to 190, one for each toolbar row
constexpr int kLastViewItem = 190;
constexpr int kFirstModeItem = 191;  // to 195; the routes reach 200
constexpr int kLastModeItem = 195;
constexpr int kLastModeRoute = 200;

// Timers of the main window.
constexpr int kPollTimer = 114;
constexpr int kBlinkTimer = 115;
constexpr int kDeferredLoadTimer = 116;
constexpr int kNoticeTimer = 184;

// Events that the interface layer raises.
constexpr int kEventMenu = 1;
constexpr int kEventCloseWindow = 2;
constexpr int kEventGadget = 3;
constexpr int kEventRepaint = 4;
constexpr int kEventMoveWindow = 5;
constexpr int kEventSizeWindow = 6;
constexpr int kEventActivateWindow = 7;
constexpr int kEventDeactivateWindow = 8;
constexpr int kEventWindowDrop = 10;
constexpr int kEventGadgetDrop = 11;
constexpr int kEventMinimizeWindow = 12;
constexpr int kEventMaximizeWindow = 13;
constexpr int kEventRestoreWindow = 14;
constexpr int kEventTimer = 15;
constexpr int kEventRightButtonUp = 16;
constexpr int kEventLeftButtonUp = 17;
constexpr int kEventLeftDoubleClickUp = 18;
constexpr int kLastLayerEvent = 65535;

// Events that the program posts.
constexpr int kEventLoadRequest = 65536;  // handled, never posted
constexpr int kEventServerMessage = 65537;
constexpr int kEventServerChunk = 65538;
constexpr int kEventTerminalReply = 65540;
constexpr int kEventSendDone = 65541;
constexpr int kEventSendStatus = 65542;
constexpr int kEventReceiveDone = 65543;
constexpr int kEventReceiveStatus = 65544;
constexpr int kEventPrintLine = 65545;  // another thread handed over a line for the terminal

// Sub-types of gadget events.
constexpr int64_t kTypeLeftClick = 0;
constexpr int64_t kTypeLeftDoubleClick = 2;
constexpr int64_t kTypePathChanged = 4;
constexpr int64_t kTypePathChosen = 5;
constexpr int64_t kTypeFocus = 256;
constexpr int64_t kTypeLostFocus = 512;
constexpr int64_t kTypeValueChanged = 768;
constexpr int64_t kTypeMouseMove = 65539;
constexpr int64_t kTypeLeftButtonUp = 65541;
constexpr int64_t kTypeMouseWheel = 65546;
constexpr int64_t kTypeKeyDown = 65547;
constexpr int64_t kTypeInput = 65549;
constexpr int kEventCanvasInput = 65549;  // as an event number: read and dropped

// Attributes of a canvas event.
constexpr int kAttributeMouseX = 2;
constexpr int kAttributeMouseY = 3;
constexpr int kAttributeButtons = 4;
constexpr int kAttributeKey = 5;
constexpr int kAttributeModifiers = 6;
constexpr int kAttributeWheel = 8;
constexpr int kAttributeInput = 9;
constexpr int kAttributeKeyOfText = 10;

// Canvas pointer buttons and key modifiers, as the attributes give them.
constexpr int kButtonLeft = 1;
constexpr int kButtonRight = 2;
constexpr int kButtonMiddle = 4;
constexpr int kModifierShift = 1;
constexpr int kModifierAlt = 2;
constexpr int kModifierControl = 4;

// Server identities; they ride in the type value of server events.
constexpr int64_t kDataServerIdentity = 262144;
constexpr int64_t kControlServerIdentity = 262145;

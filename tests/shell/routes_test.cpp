// Every route of the dispatch tables: an event goes in by the queue, and out come the bytes
// at the far end, the focus, and all that changed besides.
#include "tests/shell/ShellRig.h"
#include "ui/windows/Notice.h"
#include "xmodem/XmodemJob.h"

namespace {

// The beginning of a text, its line ends as "^".
QString Head(QString text) {
    return text.replace("\r\n", "^").replace('\n', '^').replace(" ^", "^").left(12);
}

QString Lines() {
    const QString all = GetTerminalText(TextPart::kAll).replace(lineEnding.bytes, "|");
    return QString(all).replace(" |", "|").remove(QRegExp("[| ]+$"));
}

using Facts = std::map<QString, QString>;

// Whatever the routes of the main window can change. A frame that does not tell of the
// terminal's focus is a fact as well.
Facts State(const QString& asked) {
    const auto numbers = [](std::initializer_list<int> values) {
        QString all;
        for (int value : values) all += QString::number(value);
        return all;
    };
    const bool lit = CanvasPicture(kFrameCanvas).pixel(2, 2) == 0xFF7FC2FF;
    QString macros, presets, open, size;
    for (const MacroEntry& macro : macroList) macros += macro.label + ';';
    for (const PresetEntry& preset : presetList) presets += preset.nickname + ';';
    for (int window : {kHelpWindow, kFileManagerWindow, kNoticeWindow})
        if (WindowIsOpen(window)) open += QString::number(window) + '.';
    QTimer* const notice = ShellRig::Timer(kNoticeTimer);
    if (notice) open += GadgetText(kNoticeText) + numbers({notice->interval()});
    QTextStream(&size) << terminalScreen.cols << 'x' << terminalScreen.rows;
    // clang-format off
    Facts facts = {
        {"address", linkSettings.tcpAddress + ':' + linkSettings.tcpPort}, {"asked", asked},
        {"bar", GadgetText(kCommandEntry)}, {"clip", Head(ClipboardText())},
        {"capture", numbers({capture.on, capture.listingState}) + Head(capture.buffer)},
        {"connected", numbers({linkStatus.linkConnected})}, {"ending", lineEnding.name},
        {"dark", numbers({terminalSettings.darkBackground})}, {"exit", numbers({exitRequested})},
        {"family", uploadOptions.familyName}, {"file", Head(ScratchFolder::Get("saved.txt"))},
        {"folder", fileManagerSettings.pcFolder}, {"font", numbers({terminalSettings.fontSize})},
        {"frame", lit == (FocusedGadget() == kTerminalCanvas) ? "" : "wrong"}, {"line", Lines()},
        {"ground", CanvasPicture(kTerminalCanvas).pixelColor(500, 500).name()}, {"macros", macros},
        {"mode", numbers({terminalMode}) + GadgetText(kModeText)}, {"open", open}, {"size", size},
        {"mouse", numbers({mouseMode, GadgetState(kMouseButton)})}, {"presets", presets},
        {"nick", GadgetText(kNicknameEntry)}, {"pico", uploadSettings.picoPort},
        {"override", numbers({uploadSettings.overrideFileSettings})}, {"port", linkSettings.comPort},
        {"quiet", numbers({linkStatus.quietTerminal})}, {"rows", mainWindowPlace.linesToShow},
        {"resize", numbers({terminalSettings.allowResize})}, {"speed", linkSettings.serialSpeed},
        {"source", uploadSource.text}, {"spec", GadgetText(kSpecEntry)},
        {"tcp", numbers({linkStatus.deviceOnTcpip, GadgetHidden(kSpeedCombo), !GadgetHidden(kAddressEntry)})},
        {"used", numbers({shellSettings.lastUsedPreset})}, {"wrap", numbers({terminalSettings.wordWrap})},
    };
    // clang-format on
    for (int item = 1; item <= kLastModeItem; ++item)
        facts["tick" + QString::number(item)] = numbers({MenuItemTick(item)});
    return facts;
}

class Routes : public ShellRig {
  protected:
    Routes() {
        AddMacro({"Go", "RUN\\013"});
        AddMacro({"Other", "X\\013"});
        AddPreset({"One", "'target s\\maximite"});
        AddPreset({"Two", "'target s\\cmm2"});
        SetHistory({"a", "b"});
        AddDefaultFamilies();
        OpenWindow();
        ConnectDevice();
        ClearTerminal(kTerminalCanvas);
        for (int i = 1; i <= 60; ++i) TerminalPrintLine("n" + QString::number(i));
    }

    // Acts while a gadget has the focus. The bytes sent, the gadget with the focus
    // afterwards, and all that changed; of the terminal's lines those that are new.
    template <typename Action>
    std::string Effect(Action action, int focus = kNicknameEntry) {
        FocusGadget(focus);
        SetClipboardText("old");
        Drain();
        device.Read();
        const Facts before = State(asked);
        const int64_t start = clock.Now();
        action();
        Drain();
        QString outcome = QString::fromStdString(device.Read());
        outcome += '@' + QString::number(FocusedGadget());
        for (const auto& [name, value] : State(asked)) {
            const QString& old = before.at(name);
            const bool more = name == "line" && value.startsWith(old);
            if (value != old) outcome += ' ' + name + '=' + (more ? value.mid(old.size()) : value);
        }
        if (clock.Now() != start) outcome += " ms=" + QString::number(clock.Now() - start);
        return outcome.remove(scratch.folder.path()).toStdString();
    }
    std::string After(int32_t event, int64_t object, int64_t type = 0, int window = kMainWindow) {
        return Effect([=] { Raise(event, object, type, window); });
    }
};

TEST_F(Routes, OfGadgets) {
    // clang-format off
    const struct {
        int gadget;
        const char* set;  // what the gadget, or the command bar, shows before
        std::string outcome;
    } gadgetRows[] = {
        {kOverrideCheck, "1", "@45 override=1"}, {kOverrideCheck, "", "@45 override=0"},
        {kSpecEntry, "'target s\\pico", "@45"}, {kFamilyCombo, "cmm2", "@45 family=cmm2"},
        {kOptionsCombo, "norun", "@45 spec='target s\\pico norun\\"},
        {kOptionsCombo, "norun", "@45"}, {kSpeedCombo, "57600", "@45 speed=57600"},
        {kPortCombo, "TCPIP", "@45 port=TCPIP tcp=111"},
        {kPortCombo, "ttyUSB1", "@45 port=TTYUSB1 tcp=000"}, {kMouseButton, "", "@45 mouse=11"},
        {kMouseButton, "", "@45 mouse=00"}, {kConnectButton, "", "@24"},
        {kSendButton, "cmd", "cmd@45 bar="}, {kSendCrButton, "cmd", "cmd\r@45 bar="},
        {kHistoryPreviousButton, "", "@45 bar=cmd"}, {kHistoryPreviousButton, "", "@45 bar=b"},
        {kHistoryPreviousButton, "", "@45 bar=a"}, {kHistoryPreviousButton, "", "@45"},
        {kHistoryNextButton, "", "@45 bar=b"}, {kClearCommandButton, "", "@53 bar="},
        {kFirstMacroButton, "", "RUN\r@24 ms=120"}, {kFirstMacroButton + 1, "", "X\r@24 ms=120"},
        {kFirstMacroButton + 2, "", "@45"}, {kEscButton, "", "\x1b@24 ms=120"},
        {kFirstControlButton, "", "\1@24 ms=120"}, {kCtrlCButton, "", "\3@24 ms=120"},
        {kCtrlZButton, "", "\xf@24 ms=120"}, {kRunButton, "", "RUN\r\n@24 ms=120"},
        {kClsButton, "", "@24 line="}, {kIdleButton, "", "@45"},
        {kFirstFunctionKeyButton, "", "\x1b[11~@24 ms=120"},
        {kFirstFunctionKeyButton + 4, "", "\x1b[15~@24 ms=120"},
        {kFirstFunctionKeyButton + 9, "", "\x1b[21~@24 ms=120"},
        {kLastFunctionKeyButton, "", "\x1b[24~@24 ms=120"},
        {kSaveMacroButton, "", "@45 asked=Macro,Nickname for macro?, macros=Go;Other;third;"},
        {kSavePresetButton, "", "@45"}, {kNicknameEntry, "Three", "@45"},
        {kSavePresetButton, "", "@45 presets=One;Two;Three;"},
        {kTouchButtonUnused, "", "@45 line=||||port TTYUSB1 pico=ttyUSB1"},
        {kUploadButtonUnused, "", "@45 line=|Nothing to load."},
        {kFirstPresetButton, "", "@45 family=maximite nick=One spec='target s\\maximite"},
        {kFirstPresetButton + 1, "", "@-1 family=cmm2 nick=Two open=183.You are still connected!!!4000 spec='target s\\cmm2 used=1"},
        {kDisconnectButton, "", "@-1 connected=0 line=||Disconnected"},
        {kFirstPresetButton, "", "@-1 family=maximite nick=One spec='target s\\maximite used=0"},
        {kLastPresetRoute, "", "@-1"},
    };
    // clang-format on
    answer = "third";
    for (const auto& row : gadgetRows) {
        const bool send = row.gadget == kSendButton || row.gadget == kSendCrButton;
        if (row.gadget == kOverrideCheck) {
            SetGadgetState(row.gadget, *row.set != 0);
        } else if (*row.set) {
            SetGadgetText(send ? kCommandEntry : row.gadget, row.set);
        }
        EXPECT_EQ(After(kEventGadget, row.gadget, kTypeValueChanged), row.outcome) << row.gadget;
    }
}

TEST_F(Routes, OfMenuItemsAndShortcuts) {
    // clang-format off
    const std::pair<int, std::string> menuRows[] = {
        {kItemAllowResize, "@45 resize=0 tick7=0"}, {kItemAllowResize, "@45 resize=1 tick7=1"},
        {kItemWordWrap, "@45 tick30=1 wrap=1"},
        {kItemLineEndingCr, "@45 ending=CR tick10=0 tick11=1"},
        {kItemLineEndingLf, "@45 ending=LF tick11=0 tick12=1"},
        {kItemLineEndingCrLf, "@45 ending=CRLF tick10=1 tick12=0"}, {kItemPasteText, "old\r\n@45"},
        {kItemPasteSlowly, "old\r\n@45 ms=120"}, {kItemCopyAll, "@45 clip=n1^n2^n3^n4^"},
        {kItemCopyVisible, "@45 clip=n14^n15^n16^"}, {kItemSaveVisible, "@45 file=n14^n15^n16^"},
        {kItemSaveAll, "@45 file=n1^n2^n3^n4^"}, {kItemStartCapture, "@24 capture=10"},
        {kItemEndCapture, "@45 capture=00 file="}, {kItemNew, "NEW\r\n@24"},
        {kItemListAll, "LIST ALL\r\n@45"}, {kItemOptionList, "OPTION LIST\r\n@24"},
        {kItemFiles, "FILES\r\n@24"}, {kItemRun, "RUN\r\n@24"},
        {kItemSetTime, "Date$ = \"04/03/2026\"\r\nTime$ = \"05:06:07\"\r\n@24"},
        {kItemSetRtc, "RTC SETTIME 26,03,04,05,06,07\r\n@24"},
        {kItemAutosaveCode, "\3NEW\r\n@24 line=|||Uploading using:  |Upload started|***TIMEOUT*** source=old ms=4380"},
        {kItemSendListing, "LIST ALL\r\n@45 capture=11"}, {kShortcutLineEnding, "\r\n@45"},
        {kShortcutAddressReturn, "@45 address=ab:3001 ending=LF tick10=0 tick12=1"}, {kShortcutHistoryPrevious, "@45 bar=b"},
        {kShortcutHistoryNext, "@45 bar="}, {kShortcutCommandReturn, "\r@45"},
        {kShortcutCtrlC, "@45"}, {kShortcutCtrlZ, "@45"}, {kShortcutF10, "\x1b[21~@45"},
        {kShortcutShiftF10, "\x1b[34~@45"}, {kShortcutAltC, "@45 clip="},
        {kItemClearScreen, "@24 line="}, {kFirstViewItem + 1, "@24 rows=101111 tick186=0"},
        {kFirstViewItem + 5, "@24 rows=101110 tick190=0"},
        {kFirstViewItem + 1, "@24 rows=111110 tick186=1"},
        {kFirstModeItem + 1, "@45 mode=1External VT helper tick191=0 tick192=1"},
        {kFirstModeItem + 2, "@45 mode=2Monitor tick192=0 tick193=1"},
        {kFirstModeItem + 3, "@45 mode=3HEX monitor tick193=0 tick194=1"},
        {kFirstModeItem, "@45 mode=0VT Terminal tick191=1 tick194=0"},
        {kItemDarkBackground, "@45 dark=0 ground=#ffffff tick9=0"}, {kItemDarkBackground, "@45 dark=1 ground=#000000 tick9=1"},
        {kItemTerminalFont, "@24 font=14"},
        {kItemTerminalSize, "@24 asked=New size,Enter new terminal size W x H,101 x 50 size=90x30"},
        {kItemDefaultTerminalSize, "@24 size=101x50"}, {kItemAbout, "@45 asked=KewLink Console"},
        {kItemHelp, "@157 open=155."},
    };
    // clang-format on
    answer = "90 x 30";
    LinkSettingsForTable().tcpAddress = "a\r\nb";
    const auto at = [this](int focus, int item) {
        return Effect([=] { Raise(kEventMenu, item); }, focus);
    };
    EXPECT_EQ(at(kTerminalCanvas, kShortcutCtrlC), "\3@24 ms=120");
    EXPECT_EQ(at(kTerminalCanvas, kShortcutCtrlZ), "\x1a@24 ms=120");
    EXPECT_EQ(at(kTerminalCanvas, kShortcutAltC), "@24 clip=");
    EXPECT_EQ(at(kCommandEntry, kShortcutAltC), "@53");
    for (const auto& [item, outcome] : menuRows) {
        if (item == kItemClearScreen) TerminalFeed("\x1b[41m");
        if (item == kShortcutAddressReturn) SetGadgetText(kSpecEntry, "le\\lf");
        EXPECT_EQ(After(kEventMenu, item), outcome) << item;
    }
}

TEST_F(Routes, OfEventsAndTimers) {
    const auto step = [this](int32_t event, const QString& source = QString()) {
        SetCurrentFile(source);
        SetQuietTerminal(true);
        return After(event, event == kEventTimer ? kDeferredLoadTimer : 0);
    };
    // Each step of a queue without a file leaves the terminal as its direction does.
    EXPECT_EQ(step(kEventSendDone), "\r@45 quiet=0 ms=120");
    EXPECT_EQ(step(kEventReceiveDone), "\r@45 ms=120");
    EXPECT_EQ(step(kEventLoadRequest, "a.UF2"), "@45 line=|||a.UF2|Firmware update|port not set");
    EXPECT_EQ(step(kEventCanvasInput), "@45");
    EXPECT_EQ(step(kEventSendStatus), "@45");
    EXPECT_EQ(step(kEventSizeWindow), "@24");
    AddWindowTimer(kMainWindow, kDeferredLoadTimer, 200);
    EXPECT_EQ(step(kEventTimer), "@45 line=|started");
    EXPECT_EQ(WaitForEvent(300), kNoEvent);  // once
    EXPECT_EQ(step(kEventTimer, "b.UF2"), "@45 line=|started|b.UF2|port not set");
    const auto polled = [this](const std::string& text) {
        device.Write(text);
        return After(kEventTimer, kPollTimer);
    };
    EXPECT_EQ(polled("lost"), "@45");
    SetQuietTerminal(false);
    EXPECT_EQ(polled("\r\n>"), "@45 line=||>");
    // The poll stands aside for a dialogue, a step of the queue and the workers.
    void (*const bars[])(bool) = {SetPollingSuspended, SetQueueBusy,
                                  [](bool on) { JobOf(Direction::kSend).thread.started = on; },
                                  [](bool on) { JobOf(Direction::kReceive).thread.started = on; }};
    for (const auto bar : bars) {
        bar(true);
        EXPECT_EQ(polled("waits."), "@45");
        bar(false);
        EXPECT_EQ(polled(""), "@45 line=waits.");
    }
    EXPECT_EQ(polled("\x1b[2;3H\x1b[6n\x1b[7;5H\x1b[6n"), "\x1b[7;5R@45");  // the last of a block
    EXPECT_EQ(After(kEventCloseWindow, 0, 0, kHelpWindow), "@45");
    EXPECT_EQ(After(kEventCloseWindow, 0), "@45 exit=1");
    ShowNotice("", 100000);
    EXPECT_EQ(After(kEventTimer, kNoticeTimer), "@-1 open=");  // the notice took it
}

TEST_F(Routes, OfTheFileManager) {
    QDir().mkdir("a");
    FileManagerSettingsForTable().pcFolder = scratch.folder.path() + "/";
    SetLineEnding("CR");
    After(kEventMenu, kFirstModeItem + kModeFileManager);
    const auto chosen = [this](int gadget, const char* name, int64_t type) {
        return Effect([=] {
            SetGadgetText(gadget, scratch.folder.path() + name);
            Raise(kEventGadget, gadget, type, kFileManagerWindow);
        });
    };
    AddGadgetItem(kDeviceList, "<DIR> old");
    SetGadgetState(kDeviceList, GadgetItemCount(kDeviceList) - 1);
    EXPECT_EQ(After(kEventGadget, kDeviceList, kTypeLeftDoubleClick, kFileManagerWindow),
              "chdir \"old\"\rfiles\r@163 ms=400");
    EXPECT_EQ(Effect([] { FlashSlotUpload(QString(), 1); }),
              "\r\r\r\r\3"
              "files\r@163 line=|Nothing to load. open=161.4000 ms=1900");
    EXPECT_EQ(chosen(kPcPathEntry, "/a", kTypePathChosen), "@163 folder=/a/");
    EXPECT_EQ(chosen(kPcList, "/", kTypeValueChanged), "@163 folder=/");
    ResizeNumberedWindow(kFileManagerWindow, kKeep, kKeep, 800, 500);
    EXPECT_EQ(After(kEventSizeWindow, 0, 0, kFileManagerWindow), "@163");
    EXPECT_EQ(fileManagerSettings.width, 800);
    EXPECT_EQ(After(kEventCloseWindow, 0, 0, kFileManagerWindow),
              "@-1 mode=0VT Terminal open=4000 tick191=1 tick195=0");
}

TEST_F(Routes, OfTheHelpWindow) {
    const auto page = [this](int button) {
        Raise(kEventGadget, button, 0, kHelpWindow);
        const QUrl url = WidgetOfGadget(kHelpWebView)->property("url").toUrl();
        return url.path().section('/', -2).toStdString();
    };
    After(kEventMenu, kItemHelp);
    EXPECT_EQ(page(kHelpBasicIndexButton), "html/index.htm");
    EXPECT_EQ(page(kHelpEditorIndexButton), "html2/index.htm");
    ResizeNumberedWindow(kHelpWindow, kKeep, kKeep, 500, 400);
    EXPECT_EQ(After(kEventSizeWindow, 0, 0, kHelpWindow), "@157");
    EXPECT_EQ(GadgetHeight(kHelpWebView), 350);
    EXPECT_EQ(After(kEventCloseWindow, 0, 0, kHelpWindow), "@-1 open=");
    EXPECT_EQ(helpSettings.width + helpSettings.height, 500 + 400);
}

// The mouse belongs to the selection or to the device.
TEST_F(Routes, OfThePointer) {
    QWidget* const canvas = WidgetOfGadget(kTerminalCanvas);
    const auto drag = [&](int from, int modeAtRelease) {
        SetClipboardText("old");
        Press(canvas, {3, 3}, Qt::LeftButton);
        for (int x : {from, 52}) Move(canvas, {x, 3}, Qt::LeftButton);
        Drain();
        SetMouseMode(modeAtRelease);
        Release(canvas, {52, 3}, Qt::LeftButton);
        Move(canvas, {90, 3}, Qt::NoButton);
        Drain();
        return device.Read() + ClipboardText().toStdString();
    };
    EXPECT_EQ(drag(7, 0), "n12");
    SetMouseMode(2);
    EXPECT_EQ(drag(7, 2), "\x1b[M '!old");
    SetMouseMode(0);
    EXPECT_EQ(drag(15, 2), "\x1b[M '!old");  // what was begun is not finished
    SetMouseMode(0);
    EXPECT_EQ(drag(15, 0), "12");
    SetMouseMode(1);
    Turn(canvas, 120);
    EXPECT_EQ(device.Read(), "\x1b[A");
    SetMouseMode(0);
    const int top = terminalScreen.topLine;
    Turn(canvas, 240);
    EXPECT_EQ(terminalScreen.topLine, top - 2);
    WidgetOfGadget(kTerminalScrollBar)->setProperty("value", 3);
    EXPECT_EQ(terminalScreen.topLine, 3);
}

TEST_F(Routes, OfDrops) {
    QMimeData text, files;
    text.setText("A");
    files.setUrls({QUrl::fromLocalFile("/none/a.uf2")});
    const auto dropped = [this](QWidget* target, const QMimeData& data) {
        return Effect([&] { Drop(target, data); });
    };
    QWidget* const terminal = WidgetOfGadget(kTerminalCanvas);
    const std::string file = "|Processing file: /none/a.uf2|Firmware update|port not set ms=2240";
    EXPECT_EQ(dropped(WidgetOfWindow(kMainWindow), files), "\r\r@45 line=|" + file);
    EXPECT_EQ(dropped(terminal, files), "\r\r@45 line=||" + file);
    EXPECT_EQ(dropped(terminal, text),
              "\3NEW\r\n@24 line=||Drop text|Uploading using:  |Upload started|***TIMEOUT*** "
              "source=A ms=4380");
    text.setText("'encode");  // of no file: nothing is done
    EXPECT_EQ(dropped(terminal, text),
              "@24 line=|Drop text|No file to write beside: nothing was encoded. source='encode");
}

}  // namespace

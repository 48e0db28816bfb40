// The main window as start-up leaves it: every gadget, menu item, timer and font. And how
// the program leaves it.
#include "filemanager/FileManagerWindow.h"
#include "tests/shell/ShellRig.h"
#include "ui/drawing/PBCanvasWidget.h"

namespace {

using Window = ShellRig;

// Number, kind, what it stands in, place, size of the font, text and tip, whether it can be
// pressed and seen, the name if it is neither text nor tip, and the items.
QString LookOf(int gadget) {
    const QWidget* widget = WidgetOfGadget(gadget);
    const QRect at = widget->geometry();
    const QString text = GadgetText(gadget), tip = GadgetTooltip(gadget), name = GadgetName(gadget);
    EXPECT_EQ(widget->font().family(), "Liberation Mono") << gadget;
    EXPECT_FALSE(name.isEmpty()) << gadget;
    QString look;
    QTextStream out(&look);
    out << gadget << ' ' << widget->metaObject()->className() << ' '
        << widget->parentWidget()->property("PB_GadgetID").toInt() << ' ' << at.x() << ',' << at.y()
        << ' ' << at.width() << 'x' << at.height() << ' ' << widget->font().pointSize() << " '"
        << text << '|' << tip << '\'' << (GadgetDisabled(gadget) ? " disabled" : "")
        << (GadgetHidden(gadget) ? " hidden" : "");
    if (name != text && name != tip) out << " = " << name;
    for (int i = 0; i < GadgetItemCount(gadget); ++i) out << ' ' << GadgetItemText(gadget, i);
    return look;
}

// A line for each title: the numbers and texts of its items.
QString TitlesAndItems(const QList<QAction*>& actions) {
    QString all;
    for (const QAction* action : actions) {
        const QString text = action->text().remove('&');
        const QString number = action->property("PB_MenuItem").toString();
        if (!action->menu()) all += (all.isEmpty() ? "" : "|") + number + ' ' + text;
        if (action->menu()) all += text + ':' + TitlesAndItems(action->menu()->actions()) + '\n';
    }
    return all;
}

const char gadgetLooks[] =
    "24 PBCanvasWidget 26 5,5 812x754 10 '|' = Terminal;"
    "26 PBCanvasWidget 0 5,155 822x764 8 '|' = Terminal frame;"
    "27 QScrollBar 0 829,155 18x754 8 '|' = Scroll back;"
    "37 QLabel 206 530,1 60x20 8 '|' hidden = Upload progress;"
    "39 QComboBox 202 95,1 65x20 8 'ttyACM1|Serial port' ttyUSB0 ttyUSB1 ttyUSB2 ttyUSB3 ttyACM0 "
    "ttyACM1 ttyACM2 ttyACM3 TCPIP;41 QLineEdit 202 175,1 275x20 10 '|IPaddress : Port' hidden;"
    "42 QComboBox 202 165,1 70x20 8 '38400|Serial baud rate' 1200 4800 9600 19200 38400 57600 "
    "115200 230400 460800 576000 921600;"
    "43 QComboBox 202 5,1 85x20 8 '|Connected device' maximite micromite pi-cromite cmm2 "
    "picomite vgamite command;45 QLineEdit 203 5,1 80x20 8 '|Device nickname';"
    "46 QLineEdit 203 95,1 500x20 8 '|Device specifications';"
    "47 QPushButton 202 700,1 100x20 8 'Save settings|Save setup as preset';"
    "48 QComboBox 202 455,1 70x20 8 '|Additional options' settime setRTC norun nonew discon file;"
    "49 QPushButton 202 600,1 50x20 8 'Mouse|';"
    "50 QCheckBox 203 700,1 100x20 8 'Override|These setting override any in file';"
    "53 QLineEdit 205 5,1 370x20 10 '|Commands to send to device';"
    "54 QPushButton 205 470,1 50x20 8 'Send|Send as is';"
    "55 QPushButton 205 525,1 60x20 8 'Send+CR|Send with CR';"
    "56 QPushButton 205 380,1 25x20 8 'X|Clear command line';"
    "62 QPushButton 203 600,1 95x20 8 'Connect|Connnect to device';"
    "63 QPushButton 203 600,1 95x20 8 'Disconnect|Disconnect device' hidden;"
    "74 QPushButton 205 590,1 60x20 8 'Save|Save commandline as Macro';"
    "75 QPushButton 204 5,1 57x20 8 'Macro|' disabled;"
    "92 QPushButton 201 0,1 65x20 8 'Device|' disabled;130 QPushButton 204 610,1 30x20 8 'Esc|';"
    "133 QPushButton 204 645,1 30x20 8 '^C|' = Control C;"
    "145 QPushButton 204 680,1 30x20 8 '^Z|' = Control Z;"
    "146 QPushButton 204 715,1 30x20 8 'Cls|Clear local screen';"
    "147 QPushButton 204 750,1 50x20 8 'Run|';"
    "152 QPushButton 205 410,1 25x20 8 '<|Cycle through recent commands' = Earlier command;"
    "153 QPushButton 205 440,1 25x20 8 '>|Cycle through recent commands' = Later command;"
    "201 QWidget 0 5,5 810x25 8 '|' = Toolbar row 1;"
    "202 QWidget 0 5,30 810x25 8 '|' = Toolbar row 2;"
    "203 QWidget 0 5,55 810x25 8 '|' = Toolbar row 3;"
    "204 QWidget 0 5,80 810x25 8 '|' = Toolbar row 4;"
    "205 QWidget 0 5,105 810x25 8 '|' = Toolbar row 5;"
    "206 QWidget 0 5,130 810x25 8 '|' = Toolbar row 6;"
    "208 QLabel 206 5,1 250x20 8 '101 x 50 char, 812 x 754 pixels|' = Terminal size;"
    "210 QLabel 206 420,1 100x20 8 'VT Terminal|';";

TEST_F(Window, HoldsItsGadgets) {
    ScratchFolder::Put(
        "KWCC.inf",
        "[VTterminal]\nFont Name = Serif\nFont size = 10\n[Device]\nComport = ttyACM1\n");
    LoadSettings();
    TerminalSettingsForTable().fontName = "Liberation Mono";
    TerminalSettingsForTable().fontSize = 9;
    TerminalSettingsForTable().extraCharPixels = 1;
    TerminalSettingsForTable().extraLinePixels = 1;
    OpenWindow();
    QStringList expected = QString(gadgetLooks).split(';', Qt::SkipEmptyParts);
    const auto alike = [&](int first, int count, int pitch) {
        const QString look = LookOf(first).section(' ', 1);
        const int x = WidgetOfGadget(first)->x();
        for (int i = 1; i < count; ++i) {
            expected +=
                QString::number(first + i) + ' ' +
                QString(look).replace(QString(" %1,").arg(x), QString(" %1,").arg(x + i * pitch));
        }
    };
    alike(kFirstPresetButton, 12, 66);
    alike(kFirstMacroButton, 10, 58);
    for (int gadget = 0; gadget <= kModeText; ++gadget) {
        if (!GadgetExists(gadget)) continue;
        EXPECT_EQ(expected.removeAll(LookOf(gadget)), 1) << LookOf(gadget).toStdString();
    }
    EXPECT_EQ(expected, QStringList());
    const auto* bar = qobject_cast<QScrollBar*>(WidgetOfGadget(kTerminalScrollBar));
    EXPECT_EQ(bar->pageStep(), 40);
    EXPECT_EQ(bar->maximum(), 1024 - 40);
    EXPECT_EQ(WidgetOfGadget(kTerminalCanvas)->focusPolicy(), Qt::WheelFocus);
    EXPECT_EQ(WidgetOfWindow(kMainWindow)->windowTitle(), "Kewlink Console");
}

const char menus[] =
    "Setup:28 Terminal Size|29 Default Terminal Size|7 Allow resize|8 Terminal font...|9 Dark"
    " background|30 WordWrap|10 Line ending = CRLF|11 Line ending = CR|12 Line ending = LF\n"
    "Edit:70 AUTOSAVE code|71 Paste text|72 Paste text slowly|65 Copy All|66 Copy Visible|68 "
    "Save All As...|69 Save Visible As...\n"
    "Action:13 Set Time|14 Set RTC|15 Clear local screen|16 New|17 List All|21 Option List|22"
    " Files|23 Run|18 Start Capture|19 End Capture|20 Send Listing to Editor\n"
    "View:185 Presets|186 Manual entry|187 Setup options|188 Macrobuttons|189 Command "
    "entry|190 Monitor\n"
    "Mode:191 VT Terminal|192 External VT helper|193 Monitor|194 HEX monitor|195 File "
    "Manager\n"
    "Help:51 About|52 Help\n";

TEST_F(Window, HoldsItsMenus) {
    OpenWindow();
    const QString items = TitlesAndItems(WidgetOfWindow(0)->findChild<QMenuBar*>()->actions());
    EXPECT_EQ(items, menus);
    // The pop-up menu is shown over the terminal alone, and holds the items of "Edit".
    for (const bool terminal : {false, true}) {
        FocusGadget(terminal ? kTerminalCanvas : kCommandEntry);
        Release(WidgetOfWindow(kMainWindow)->findChild<QWidget*>(), {5, 5}, Qt::RightButton);
        Drain();
        const QWidget* popup = QApplication::activePopupWidget();
        ASSERT_EQ(popup != nullptr, terminal);
        EXPECT_TRUE(!popup || items.contains("Edit:" + TitlesAndItems(popup->actions()) + '\n'));
    }
}

TEST_F(Window, ShowsWhatIsStored) {
    MainWindowPlaceForTable().linesToShow = "101111";
    TerminalSettingsForTable().allowResize = 0;
    TerminalSettingsForTable().wordWrap = 1;
    UploadSettingsForTable().overrideFileSettings = 1;
    LinkSettingsForTable().comPort = "TCPIP";
    LinkSettingsForTable().tcpAddress = "board.local";
    LinkSettingsForTable().deviceOnTcpip = 0;  // the port's name decides, not this
    LinkSettingsForTable().pollingInterval = 20;
    ShellSettingsForTable().lastUsedPreset = 10;
    ShellSettingsForTable().activeDevice = "mine|s\\maximite";
    SetTerminalMode(kModeMonitor);
    SetLineEnding("CR");
    AddPreset({"first", "'target s\\maximite"});
    AddPreset({"mine", "'target s\\cmm2"});
    AddMacro({"Go", "RUN\\013"});
    BuildWindow();
    QStringList shown;
    for (int gadget :
         {kPortCombo, kAddressEntry, kSpeedCombo, kNicknameEntry, kSpecEntry, kFirstPresetButton,
          kFirstPresetButton + 2, kFirstMacroButton, kFirstMacroButton + 1, kModeText})
        shown += GadgetText(gadget) + (GadgetDisabled(gadget) ? " off" : "") +
                 (GadgetHidden(gadget) ? " hidden" : "");
    EXPECT_EQ(shown.join('|'),
              "TCPIP|board.local:3001|38400 hidden|mine|'target s\\cmm2|first|Device off|Go|"
              "Macro off|Monitor");
    EXPECT_EQ(uploadOptions.familyName, "cmm2");
    EXPECT_EQ(shellSettings.presetGroup, 1);  // of a preset beyond the tenth
    EXPECT_EQ(GadgetState(kOverrideCheck), 1);
    std::string ticked;  // that of word wrap stays off, whatever is stored
    for (int item = 1; item <= kLastModeItem; ++item) {
        if (MenuItemTick(item)) ticked += ' ' + std::to_string(item);
    }
    EXPECT_EQ(ticked, " 9 11 185 187 188 189 190 193");
    EXPECT_EQ(mainWindowPlace.contentTop, 130);
    EXPECT_EQ(Timer(kPollTimer)->interval(), 20);
    EXPECT_EQ(Timer(kBlinkTimer)->interval(), 400);
    EXPECT_EQ(Timer(kDeferredLoadTimer)->interval(), 300);
    EXPECT_TRUE(
        Visible().contains(QRegExp("^Kewlink Console \rBuild date: 20\\d\\d/\\d\\d/\\d\\d ")));
}

// Notes when the link goes and when a timer does.
struct Watch : QObject {
    QStringList seen;
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Hide && GadgetExists(kConnectButton))
            seen += QString("link, saved %1").arg(QFile::exists("KWCC.inf"));
        const auto* timer = qobject_cast<QTimer*>(object);
        if (timer && event->type() == QEvent::DynamicPropertyChange)
            seen += QString("timer of %1").arg(timer->interval());
        return false;
    }
};

TEST_F(Window, IsLeftInOrder) {
    AddPreset({"first", "'target s\\pico"});
    ShellSettingsForTable().lastUsedPreset = 9;  // of the first group, and gone
    ShellSettingsForTable().activeDevice = "|'target le\\cr";
    BuildWindow();
    EXPECT_EQ(
        lineEnding.name + uploadOptions.familyName + QString::number(shellSettings.presetGroup),
        "CRpicomite0");
    ConnectDevice();
    OpenFileManager();
    TakeEvents();  // shows it
    StartCapture();
    Watch watch;
    WidgetOfGadget(kDisconnectButton)->installEventFilter(&watch);
    for (int timer : {kPollTimer, kBlinkTimer}) Timer(timer)->installEventFilter(&watch);
    clock.onTick = [&](int64_t) {
        watch.seen += QString("open %1").arg(WindowIsOpen(kMainWindow));
        clock.onTick = nullptr;
    };
    const int64_t start = clock.Now();
    ShutDown();
    EXPECT_EQ(watch.seen.join(", ").toStdString(),
              "link, saved 1, timer of 400, timer of 50, open 1");
    EXPECT_EQ(clock.Now() - start, 50);
    EXPECT_FALSE(WindowIsOpen(kMainWindow) || WindowIsOpen(kFileManagerWindow));
    EXPECT_TRUE(TakeCapture().startsWith("\x1b[7mBye\x1b[0m"));
    EXPECT_GT(fileManagerSettings.width, 0);  // read when it was closed
}

// The program itself. A start counts the processes whose command line begins with its own
// path; beside another one it hands its words over and ends.
TEST(Program, RunsFromItsFirstLineToItsLast) {
    const ScratchFolder scratch;
    const QString program = QDir::currentPath() + "/KWCC";
    ASSERT_TRUE(QFile::copy(KWCC_BINARY_DIR "/bin/KWCC", program) && QDir().mkdir("data"));
    SocketEnd board, line;
    int boardPort = 0;
    board.fd = ListenLocally(boardPort);
    fcntl(board.fd, F_SETFL, O_NONBLOCK);
    const QString control = QString::number(FreePort()),
                  settings = "[Network]\nIP control port=" + control +
                             "\nIP data port=0\nKWedit control port=0\n";
    ScratchFolder::Put("data/KWCC.inf", settings.toUtf8());
    const QString field = QString("'target ip\\127.0.0.1:%1 le\\cr\n").arg(boardPort);
    ScratchFolder::Put("my file.bas", field.toUtf8() + "PRINT 1\n");
    QProcess other, first, second;
    other.start("/bin/sh", {"-c", "read line", program});
    first.start(program, {"my", "file.bas"});
    const auto greeted = [&] {  // by the upload's first byte
        if (line.fd < 0) line.fd = accept(board.fd, nullptr, nullptr);
        return line.Read() == "\3";
    };
    ASSERT_TRUE(ServeUntil(greeted, [](int32_t) {}));
    EXPECT_TRUE(LocalClient(control.toInt()).connected);
    second.start(program, {"x"});
    EXPECT_TRUE(second.waitForFinished() && second.exitCode() == 0);
    first.terminate();
    EXPECT_TRUE(first.waitForFinished() && first.exitCode() == 0);
    EXPECT_TRUE(ScratchFolder::Get("data/KWCC.inf").endsWith("\nLastUsed = 0\nDevice = |\n"));
    EXPECT_TRUE((line.Read(), line.closed));
    other.closeWriteChannel();
    other.waitForFinished();
}

}  // namespace

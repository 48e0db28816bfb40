// Numbered windows: measures, places, flags, and the events that they raise; their menus,
// shortcuts and timers.

#include "tests/support/Chosen.h"
#include "tests/ui/UiTest.h"
#include "ui/events/AddKeyboardShortcut.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/windows/Notice.h"

namespace {

QSize InnerSize(int window) {
    return QSize(WindowWidth(window, WindowMeasure::kInner),
                 WindowHeight(window, WindowMeasure::kInner));
}

QWidget* CentralWidget(int window) {
    return static_cast<QMainWindow*>(WidgetOfWindow(window))->centralWidget();
}

// All actions of an item, wherever they stand.
QList<QAction*> ActionsOf(int item) {
    QList<QAction*> actions;
    for (QWidget* widget : QApplication::allWidgets())
        for (QAction* action :
             widget->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly))
            if (action->property("PB_MenuItem") == item) actions += action;
    return actions;
}

// A key by the window system's road, on which menus come before the focus.
void PressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(WidgetOfWindow(kTestWindow)->windowHandle(), Qt::Key(key), modifiers);
}

void MenuBarOf(std::initializer_list<const char*> titles) {
    CreateMenuBar(kMainMenu, kTestWindow);
    for (const char* title : titles) {
        MenuTitle(title);
        MenuItem(kItemPasteText, "Paste text");
    }
}

using Windows = UiTest;
using Menus = UiTest;

// Scaled as the screen is, told of each pointer move, and ended by nobody but the program.
TEST(InterfaceLayer, StartsTheToolkitAsTheProgramNeedsIt) {
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
    EXPECT_EQ(QGuiApplication::highDpiScaleFactorRoundingPolicy(),
              Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    EXPECT_FALSE(QGuiApplication::isFallbackSessionManagementEnabled());
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QGuiApplication::desktopFileName(), "kewlink-console");
    EXPECT_EQ(qgetenv("QT_XCB_GL_INTEGRATION"), "none");
}

TEST_F(Windows, TheInnerSizeLiesBelowTheMenuBar) {
    EXPECT_EQ(InnerSize(0), QSize(400, 300));
    MenuBarOf({"Setup", "Edit", "Action"});
    TakeEvents();
    // What the program reads is what gadgets have, and the bar did not eat of it.
    EXPECT_EQ(InnerSize(0), QSize(400, 300));
    EXPECT_EQ(CentralWidget(0)->size(), QSize(400, 300));
    const int bar = CentralWidget(0)->y();
    EXPECT_GT(bar, 5);
    EXPECT_EQ(WindowX(0, WindowMeasure::kInner), CentralWidget(0)->mapToGlobal(QPoint(0, 0)).x());
    EXPECT_EQ(WindowY(0, WindowMeasure::kInner), CentralWidget(0)->mapToGlobal(QPoint(0, 0)).y());
    EXPECT_GE(WindowHeight(0, WindowMeasure::kFrame), 300 + bar);
    const struct {
        int x, y, width, height;
        QRect place;
    } rows[] = {
        {kKeep, kKeep, 500, kKeep, {50, 60, 500, 300}},
        {70, kKeep, kKeep, 250, {70, 60, 500, 250}},
        {kKeep, 80, kKeep, kKeep, {70, 80, 500, 250}},
        {0, 0, 1 << 20, 1 << 20, {0, 0, kLargestWindowWidth, kLargestWindowHeight}},
    };
    for (const auto& row : rows) {
        ResizeNumberedWindow(0, row.x, row.y, row.width, row.height);
        TakeEvents();
        EXPECT_EQ(WindowX(0, WindowMeasure::kFrame), row.place.x());
        EXPECT_EQ(WindowY(0, WindowMeasure::kFrame), row.place.y());
        EXPECT_EQ(CentralWidget(0)->size(), row.place.size());
    }
}

TEST_F(Windows, FlagsBecomeTheFrame) {
    OpenNumberedWindow(1, 40, 1 << 20, 200, 100, "all", kStandardWindowFlags);
    OpenNumberedWindow(2, 0, 0, 200, 100, "help", kHelpWindowFlags);
    OpenNumberedWindow(3, 0, 0, 200, 100, "fixed", kWindowClose + kWindowMinimize);
    OpenNumberedWindow(4, 0, 0, 200, 80, "centred", kWindowCentredOnParent, 1);
    EXPECT_FALSE(OpenNumberedWindow(-1, 0, 0, 200, 80, "none", 0));
    const Qt::WindowFlags buttons =
        Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint;
    const Qt::WindowFlags frames[] = {
        buttons, buttons & ~Qt::WindowCloseButtonHint, buttons & ~Qt::WindowMaximizeButtonHint, {}};
    const char* const titles[] = {"all", "help", "fixed", "centred"};
    for (int window = 1; window <= 4; ++window) {
        const QWidget* widget = WidgetOfWindow(window);
        EXPECT_EQ(widget->windowFlags() & buttons, frames[window - 1]) << window;
        EXPECT_EQ(widget->windowType(), window == 4 ? Qt::Dialog : Qt::Window);
        EXPECT_EQ(widget->minimumSize() == widget->maximumSize(), window > 2);
        EXPECT_EQ(WindowTitle(window), titles[window - 1]);
    }
    EXPECT_EQ(WidgetOfWindow(1)->pos(), QPoint(40, kFurthestPlace));
    const QPoint off =
        WidgetOfWindow(4)->geometry().center() - WidgetOfWindow(1)->geometry().center();
    EXPECT_LT(off.manhattanLength(), 8);  // the frame's own width is not known beforehand
    EXPECT_EQ(WidgetOfWindow(4)->parentWidget(), WidgetOfWindow(1));
    SetWindowTitle(1, "new");
    EXPECT_EQ(WindowTitle(1) + WindowTitle(99), "new");
}

TEST_F(Windows, WhatHappensToOneIsAnEventAndBurstsCollapse) {
    QWidget* const window = WidgetOfWindow(0);
    const QPoint at(200, 200);
    const std::pair<int, std::function<void()>> rows[] = {
        {kEventSizeWindow, [=] { window->resize(410, 310), window->resize(420, 320); }},
        {kEventMoveWindow, [=] { window->move(90, 95); }},
        {kEventMinimizeWindow, [=] { window->showMinimized(); }},
        {kEventRestoreWindow, [=] { ActivateNumberedWindow(0); }},
        {kEventMaximizeWindow, [=] { window->showMaximized(); }},
        {kEventRestoreWindow, [=] { window->showNormal(); }},
        {kEventRepaint, [=] { window->repaint(); }},
        {kEventLeftButtonUp, [=] { Click(window, at); }},
        {kEventLeftDoubleClickUp, [=] { ClickAgain(window, at); }},
        {kEventLeftButtonUp, [=] { Click(window, at); }},
        {kEventRightButtonUp, [=] { Release(window, at, Qt::RightButton); }},
        {kEventCloseWindow, [=] { window->close(); }},
    };
    for (const auto& [event, act] : rows) {
        act();
        EXPECT_EQ(TakeEvents(event), (Events{{event, 0, -1, 0}}));
    }
    EXPECT_TRUE(window->isVisible() && WindowIsOpen(0));
    OpenNumberedWindow(155, 0, 0, 200, 100, "other", kHelpWindowFlags);
    EXPECT_EQ(TakeEvents(kEventDeactivateWindow), (Events{{8, 0, -1, 0}}));
    ActivateNumberedWindow(0);
    EXPECT_EQ(TakeEvents(kEventActivateWindow), (Events{{7, 0, -1, 0}}));
}

TEST_F(Windows, AClosedWindowTakesItsGadgetsTimersAndEventsAlong) {
    OpenNumberedWindow(161, 0, 0, 300, 200, "files", kStandardWindowFlags);
    ContainerGadget(166, 0, 0, 100, 40);
    ButtonGadget(168, 2, 2, 50, 25, ">>>");
    OpenNumberedWindow(183, 0, 0, 100, 50, "child", kWindowCentredOnParent, 161);
    CloseGadgetList();
    AddWindowTimer(161, 9, 1);
    TakeEvents();
    Click(WidgetOfGadget(168));
    WidgetOfWindow(161)->close();
    PostInterfaceEvent(65541, 161, kNone, 0);
    CloseNumberedWindow(161);
    EXPECT_FALSE(WindowIsOpen(161) || WindowIsOpen(183) || GadgetExists(166) || GadgetExists(168));
    EXPECT_EQ(WindowWidth(161, WindowMeasure::kInner), 0);
    ButtonGadget(170, 0, 0, 10, 10, "x");  // the list of the closed window is closed: it
    EXPECT_EQ(WidgetOfGadget(170)->window(), WidgetOfWindow(0));  // lies in the one before
    Events left;
    for (const Seen& event : TakeEvents()) {
        if (event.window == 161) left.push_back(event);
    }
    EXPECT_EQ(left, (Events{{65541, 161, -1, 0}}));  // the program's own message
    CloseNumberedWindow(-1);
    EXPECT_FALSE(WindowIsOpen(0));
    CloseNumberedWindow(0);
    ResizeNumberedWindow(0, 1, 1, 1, 1);
    ActivateNumberedWindow(0);
}

TEST_F(Windows, TheNoticeLeavesTheFocusAndTakesTheNextOnesText) {
    ButtonGadget(62, 10, 10, 80, 20, "Connect");
    FocusGadget(62);
    TakeEvents();
    ShowNotice("Selection copied to clipboard", 1);
    ButtonGadget(63, 10, 40, 80, 20, "in the window");
    EXPECT_EQ(WidgetOfGadget(63)->window(), WidgetOfWindow(0));
    EXPECT_EQ(FocusedGadget(), 62);
    EXPECT_EQ(WindowTitle(kNoticeWindow) + GadgetText(kNoticeText),
              "NoticeSelection copied to clipboard");
    EXPECT_EQ(InnerSize(kNoticeWindow), QSize(200, 80));
    while (WaitForEvent(5000) != kEventTimer) ASSERT_NE(EventNumber(), kNoEvent);
    EXPECT_EQ(EventObject(), kNoticeTimer);
    OpenNumberedWindow(kFileManagerWindow, 0, 0, 300, 300, "Files", kStandardWindowFlags);
    ShowNotice("another", 1000);
    EXPECT_EQ(WidgetOfWindow(kNoticeWindow)->parentWidget(), WidgetOfWindow(kFileManagerWindow));
    EXPECT_EQ(GadgetText(kNoticeText), "another");
    for (int i = 0; i < 2; ++i) CloseNotice();
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
}

// What a blocking procedure did must be on the screen before it sleeps.
TEST_F(Windows, FlushShowsChangesWithoutTheLoop) {
    static int paints;
    struct Painted : QLabel {
        using QLabel::QLabel;
        void paintEvent(QPaintEvent*) override { ++paints; }
    };
    auto* label = new Painted(WidgetOfWindow(0));
    label->show();
    FlushPainting();
    paints = 0;
    FlushPainting();
    EXPECT_EQ(paints, 0);  // nothing changed
    label->setText("new");
    OpenNumberedWindow(1, 0, 0, 100, 100, "new", kStandardWindowFlags);
    FlushPainting();
    EXPECT_EQ(paints, 1);
    EXPECT_TRUE(WidgetOfWindow(1)->isVisible());
}

TEST_F(Menus, AnItemRaisesItsNumberAndKeepsItsTickInEveryMenuThatHoldsIt) {
    MenuItem(kItemPasteText, "of no menu");
    MenuBarOf({"Edit"});
    SetMenuItemTick(kItemPasteText, true);
    CreatePopupMenu(kPopupMenu);
    MenuTitle("of no bar");
    MenuItem(kItemPasteText, "Paste text");
    ShowPopupMenu(kPopupMenu, kTestWindow);
    TakeEvents();
    const QList<QAction*> actions = ActionsOf(kItemPasteText);
    ASSERT_EQ(actions.size(), 2);
    for (const bool ticked : {true, false}) {
        SetMenuItemTick(kItemPasteText, ticked);
        for (QAction* action : actions) {
            action->trigger();  // the toolkit would flip the tick
            EXPECT_EQ(TakeEvents(kEventMenu),
                      (Events{{kEventMenu, kTestWindow, kItemPasteText, 0}}));
            EXPECT_EQ(action->isChecked(), ticked);
        }
        EXPECT_EQ(MenuItemTick(kItemPasteText), ticked);
    }
    for (int item = 190; item < 195; ++item) MenuItem(item, "mode");
    for (const int ticked : {191, 193}) TickOneOf(191, 193, ticked);
    EXPECT_FALSE(MenuItemTick(191) || MenuItemTick(192) || MenuItemTick(99));
    EXPECT_TRUE(MenuItemTick(193));
    EXPECT_EQ(MenuItemText(193) + MenuItemText(99), "mode");
    ShowPopupMenu(99, kTestWindow);
    ShowPopupMenu(kPopupMenu, 99);
}

TEST_F(Menus, KeysAreTheProgramsUnlessTheUserChoseThemForMenus) {
    CanvasGadget(kTerminalCanvas, 0, 0, 100, 100, kCanvasKeyboard);
    MenuBarOf({"Setup", "Edit"});
    FocusGadget(kTerminalCanvas);
    TakeEvents();
    PressKey(Qt::Key_Alt);
    PressKey(Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(FocusedGadget(), kTerminalCanvas);
    EXPECT_FALSE(QApplication::activePopupWidget());
    for (const int number : {7, 41}) AddKeyboardShortcut(kTestWindow, Qt::Key_Return, number);
    TakeEvents();
    for (int i = 0; i < 2; ++i) PressKey(Qt::Key_Return);
    RemoveKeyboardShortcut(kTestWindow, Qt::Key_Return);
    PressKey(Qt::Key_Return);
    Events told(2, {kEventMenu, kTestWindow, 41, 0});
    for (const int64_t type : {kTypeKeyDown, kTypeInput})
        told.push_back(GadgetEvent(kTerminalCanvas, type));
    EXPECT_EQ(TakeEvents(), told);

    const Chosen alt(&Choices::altOpensMenus);
    MenuBarOf({"Setup", "Edit"});
    TakeEvents();
    PressKey(Qt::Key_Alt);
    EXPECT_TRUE(qobject_cast<QMenuBar*>(QApplication::focusWidget()));
    PressKey(Qt::Key_Escape);
    PressKey(Qt::Key_E, Qt::AltModifier);
    const auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(open);
    EXPECT_EQ(open->title(), "&Edit");
}

TEST_F(Windows, TimersFireWithTheirNumberUntilRemoved) {
    AddWindowTimer(kTestWindow, 114, 1);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(WaitForEvent(5000), kEventTimer);
        EXPECT_EQ(EventObject(), 114);
        EXPECT_EQ(EventWindow(), kTestWindow);
    }
    AddWindowTimer(kTestWindow, 114, 100000);  // replaces, queued events and all
    EXPECT_EQ(WaitForEvent(30), kNoEvent);
    AddWindowTimer(kTestWindow, 114, 0);
    AddWindowTimer(kTestWindow, 115, 1);
    QEventLoop dialog;
    QTimer::singleShot(30, &dialog, &QEventLoop::quit);
    dialog.exec();
    EXPECT_EQ(QueuedEventCount(), 2);  // however long nobody takes them, one of each waits
    for (const int timer : {114, 115, 115}) RemoveWindowTimer(kTestWindow, timer);
    RemoveWindowTimer(99, 115);
    AddWindowTimer(99, 115, 1);
    EXPECT_TRUE(TakeEvents(kEventTimer).empty());
    EXPECT_EQ(WaitForEvent(20), kNoEvent);
}

}  // namespace

// Numbered windows: measures, places, flags, and the events that they raise; their menus,
// shortcuts and timers.
#include "tests/ui/UiTest.h"

namespace {

using Windows = UiTest;
using Menus = UiTest;

// A key by the window system's road, on which menus come before the focus.
void PressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(WidgetOfWindow(kTestWindow)->windowHandle(), Qt::Key(key), modifiers);
}

void OpenMenuBar() {
    CreateMenuBar(kMainMenu, kTestWindow);
    for (const char* title : {"Edit", "Setup"}) {
        MenuTitle(title);
        MenuItem(kItemPasteText, "Paste text");
    }
    TakeEvents();
}

// Scaled as the screen is, told of each pointer move, and ended by nobody but the program.
TEST(InterfaceLayer, StartsTheToolkitAsTheProgramNeedsIt) {
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
    EXPECT_EQ(QGuiApplication::highDpiScaleFactorRoundingPolicy(),
              Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    EXPECT_FALSE(QGuiApplication::isFallbackSessionManagementEnabled());
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QGuiApplication::desktopFileName() + qgetenv("QT_XCB_GL_INTEGRATION"),
              "kewlink-consolenone");
}

// What the program reads is what gadgets have, and the bar does not eat of it.
TEST_F(Windows, TheInnerSizeLiesBelowTheMenuBar) {
    const QWidget* const inner = static_cast<QMainWindow*>(WidgetOfWindow(0))->centralWidget();
    const auto sized = [](int x, int y, int width, int height) {
        return [=] { ResizeNumberedWindow(0, x, y, width, height); };
    };
    Play({{OpenMenuBar, "50,60 400x300"},
          {sized(kKeep, 80, 500, kKeep), "50,80 500x300"},
          {sized(70, kKeep, kKeep, 250), "70,80 500x250"},
          {sized(0, 0, 1 << 20, 1 << 20), "0,0 8192x4400"}},
         [=] {
             TakeEvents();
             const auto outer = WindowMeasure::kFrame, own = WindowMeasure::kInner;
             EXPECT_EQ(
                 QRect(WindowX(0, own), WindowY(0, own), WindowWidth(0, own), WindowHeight(0, own)),
                 QRect(inner->mapToGlobal(QPoint(0, 0)), inner->size()));
             return QString::asprintf("%d,%d %dx%d", WindowX(0, outer), WindowY(0, outer),
                                      inner->width(), inner->height())
                 .toStdString();
         });
}

TEST_F(Windows, FlagsBecomeTheFrame) {
    EXPECT_TRUE(OpenNumberedWindow(1, 40, 1 << 20, 200, 100, "all", kStandardWindowFlags));
    OpenNumberedWindow(2, 0, 0, 200, 100, "help", kHelpWindowFlags);
    OpenNumberedWindow(3, 0, 0, 200, 100, "fixed", kWindowClose + kWindowMinimize);
    OpenNumberedWindow(4, 0, 0, 200, 80, "centred", kWindowCentredOnParent, 1);
    EXPECT_FALSE(OpenNumberedWindow(-1, 0, 0, 200, 80, "none", 0));
    QString told;
    for (const int window : {1, 2, 3, 4}) {
        const QWidget* w = WidgetOfWindow(window);
        told += WindowTitle(window) + (w->windowFlags() & Qt::WindowCloseButtonHint ? " X" : "") +
                (w->windowFlags() & Qt::WindowMaximizeButtonHint ? " +" : "") +
                (w->windowFlags() & Qt::WindowMinimizeButtonHint ? " _" : "") +
                (w->windowType() == Qt::Dialog ? " dialog" : "") +
                (w->minimumSize() == w->maximumSize() ? " as it is|" : "|");
    }
    EXPECT_EQ(told, "all X + _|help + _|fixed X _ as it is|centred dialog as it is|");
    const QPoint off =
        WidgetOfWindow(4)->geometry().center() - WidgetOfWindow(1)->geometry().center();
    EXPECT_LT(off.manhattanLength(), 8);  // the frame's own width is not known beforehand
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
        {kEventDeactivateWindow, [] { OpenNumberedWindow(1, 0, 0, 9, 9, "", kHelpWindowFlags); }},
        {kEventActivateWindow, [] { ActivateNumberedWindow(0); }},
    };
    for (const auto& [event, act] : rows) {
        act();
        EXPECT_EQ(Heard(event), std::to_string(event) + " 0 -1 0|");
    }
}

TEST_F(Windows, AClosedWindowTakesItsGadgetsTimersAndEventsAlong) {
    OpenNumberedWindow(161, 0, 0, 300, 200, "files", kStandardWindowFlags);
    ContainerGadget(166, 0, 0, 100, 40);
    ButtonGadget(168, 2, 2, 50, 25, ">>>");
    OpenNumberedWindow(183, 0, 0, 100, 50, "child", kWindowCentredOnParent, 161);
    CloseGadgetList();
    AddWindowTimer(161, 9, 1);
    FocusGadget(168);
    TakeEvents();
    Click(WidgetOfGadget(168));
    WidgetOfWindow(161)->close();
    PostInterfaceEvent(65541, 161, kNone, 0);  // the program's own message stays
    CloseNumberedWindow(161);
    EXPECT_FALSE(WindowIsOpen(161) || WindowIsOpen(183) || GadgetExists(166) || GadgetExists(168));
    EXPECT_EQ(WindowWidth(161, WindowMeasure::kInner), 0);
    ButtonGadget(170, 0, 0, 10, 10, "x");  // the list of the closed window is closed: it
    EXPECT_EQ(WidgetOfGadget(170)->window(), WidgetOfWindow(0));  // lies in the one before
    EXPECT_EQ(Heard(), "65541 161 -1 0|");
    for (const int all : {-1, 0}) CloseNumberedWindow(all);
    ResizeNumberedWindow(0, 1, 1, 1, 1);
    ActivateNumberedWindow(0);
}

TEST_F(Windows, TheNoticeLeavesTheFocusAndTakesTheNextOnesText) {
    ButtonGadget(62, 10, 10, 80, 20, "Connect");
    FocusGadget(62);
    TakeEvents();
    ShowNotice("copied", 1);
    ButtonGadget(63, 10, 40, 80, 20, "in the window");
    EXPECT_EQ(WidgetOfGadget(63)->window(), WidgetOfWindow(0));
    EXPECT_EQ(FocusedGadget(), 62);
    EXPECT_EQ(WidgetOfWindow(kNoticeWindow)->size(), QSize(200, 80));
    while (WaitForEvent(5000) != kEventTimer) ASSERT_NE(EventNumber(), kNoEvent);
    OpenNumberedWindow(kFileManagerWindow, 0, 0, 300, 300, "Files", kStandardWindowFlags);
    ShowNotice("another", 1000);
    EXPECT_EQ(WindowTitle(kNoticeWindow) + ": " + GadgetText(kNoticeText) + " over " +
                  WidgetOfWindow(kNoticeWindow)->parentWidget()->windowTitle(),
              "Notice: another over Files");
    for (int i = 0; i < 2; ++i) CloseNotice();
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
}

// What a blocking procedure did must be on the screen before it sleeps.
TEST_F(Windows, FlushShowsChangesWithoutTheLoop) {
    const auto painted = [] {
        FlushPainting();
        return EventIsQueued(kEventRepaint, kNone, 0);
    };
    EXPECT_FALSE(painted());  // nothing changed
    WidgetOfWindow(0)->update();
    OpenNumberedWindow(1, 0, 0, 100, 100, "new", kStandardWindowFlags);
    EXPECT_TRUE(painted() && WidgetOfWindow(1)->isVisible());
}

TEST_F(Menus, AnItemRaisesItsNumberAndKeepsItsTickInEveryMenuThatHoldsIt) {
    MenuItem(71, "of no menu");
    OpenMenuBar();
    SetMenuItemTick(71, true);
    CreatePopupMenu(kPopupMenu);
    MenuTitle("of no bar");
    MenuItem(71, "Paste text");
    ShowPopupMenu(kPopupMenu, kTestWindow);
    const auto* popup = static_cast<QMenu*>(QApplication::activePopupWidget());
    const auto* bar = static_cast<QMainWindow*>(WidgetOfWindow(0))->menuBar();
    QAction* const actions[] = {bar->actions()[0]->menu()->actions()[0], popup->actions()[0]};
    EXPECT_EQ(popup->windowHandle()->transientParent(), WidgetOfWindow(0)->windowHandle());
    TakeEvents();
    for (const bool ticked : {true, false}) {
        SetMenuItemTick(71, ticked);
        for (QAction* action : actions) {
            EXPECT_EQ(action->isChecked(), ticked);
            action->trigger();  // the toolkit would flip the tick
            EXPECT_EQ(Heard(kEventMenu), "1 0 71 0|");
        }
    }
    for (int item = 190; item < 195; ++item) MenuItem(item, "mode");
    for (const int ticked : {191, 193}) TickOneOf(191, 193, ticked);
    EXPECT_FALSE(MenuItemTick(191) || MenuItemTick(192) || MenuItemTick(194) || MenuItemTick(99));
    EXPECT_TRUE(MenuItemTick(193));
    EXPECT_EQ(MenuItemText(193) + MenuItemText(99), "mode");
    ShowPopupMenu(99, kTestWindow);
    ShowPopupMenu(kPopupMenu, 99);
}

TEST_F(Menus, KeysAreTheProgramsUnlessTheUserChoseThemForMenus) {
    CanvasGadget(24, 0, 0, 100, 100, kCanvasKeyboard);
    OpenMenuBar();
    FocusGadget(24);
    TakeEvents();
    PressKey(Qt::Key_Alt);
    PressKey(Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(FocusedGadget() == 24 && !QApplication::activePopupWidget());
    AddKeyboardShortcut(kTestWindow, Qt::Key_F1, 9);
    for (const int number : {7, 41}) AddKeyboardShortcut(kTestWindow, Qt::Key_Return, number);
    TakeEvents();
    for (int i = 0; i < 2; ++i) PressKey(Qt::Key_Return);
    RemoveKeyboardShortcut(kTestWindow, Qt::Key_Return);
    for (const int key : {Qt::Key_Return, Qt::Key_F1}) PressKey(key);
    EXPECT_EQ(Heard(), "1 0 41 0|1 0 41 0|3 0 24 65547|3 0 24 65549|1 0 9 0|");

    const Chosen alt(&Choices::altOpensMenus);
    OpenMenuBar();
    PressKey(Qt::Key_Alt);
    EXPECT_TRUE(qobject_cast<QMenuBar*>(QApplication::focusWidget()));
    PressKey(Qt::Key_Escape);
    PressKey(Qt::Key_E, Qt::AltModifier);
    const auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(open);
    EXPECT_EQ(open->title(), "&Edit");
}

TEST_F(Windows, TimersFireWithTheirNumberUntilRemoved) {
    AddWindowTimer(0, 114, 1);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(WaitForEvent(5000), kEventTimer);
        EXPECT_EQ(EventObject() + 1000 * EventWindow(), 114);
    }
    AddWindowTimer(0, 114, 100000);  // replaces, queued events and all
    EXPECT_EQ(WaitForEvent(30), kNoEvent);
    AddWindowTimer(0, 114, 0);
    AddWindowTimer(0, 115, 1);
    QTest::qWait(30);
    for (const int timer : {114, 115, 115}) RemoveWindowTimer(0, timer);
    RemoveWindowTimer(99, 115);
    AddWindowTimer(99, 115, 1);
    EXPECT_EQ(Heard(kEventTimer), "");
}

}  // namespace

// Numbered windows: measures, places, flags, and the events that they raise.

#include <QEvent>
#include <QMainWindow>
#include <functional>

#include "tests/support/Gestures.h"
#include "ui/FlushPainting.h"
#include "ui/drawing/Drawing.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Notice.h"

namespace {

QSize InnerSize(int window) {
    return QSize(WindowWidth(window, WindowMeasure::kInner),
                 WindowHeight(window, WindowMeasure::kInner));
}

QWidget* CentralWidget(int window) {
    return static_cast<QMainWindow*>(WidgetOfWindow(window))->centralWidget();
}

using Windows = WithWindow;
using Notice = WithWindow;
using Painting = WithWindow;

TEST_F(Windows, TheInnerSizeLiesBelowTheMenuBar) {
    EXPECT_EQ(InnerSize(0), QSize(400, 300));
    CreateMenuBar(kMainMenu, 0);
    for (const char* title : {"Setup", "Edit", "Action"}) {
        MenuTitle(title);
        MenuItem(7, "Allow resize");
    }
    TakeEvents();
    // What the program reads is what gadgets have, and the bar did not eat of it.
    EXPECT_EQ(InnerSize(0), QSize(400, 300));
    EXPECT_EQ(CentralWidget(0)->size(), QSize(400, 300));
    const int bar = CentralWidget(0)->y();
    EXPECT_GT(bar, 5);
    EXPECT_EQ(WindowY(0, WindowMeasure::kInner), CentralWidget(0)->mapToGlobal(QPoint(0, 0)).y());
    EXPECT_GE(WindowHeight(0, WindowMeasure::kFrame), 300 + bar);

    ResizeNumberedWindow(0, kKeep, kKeep, 500, kKeep);
    TakeEvents();
    EXPECT_EQ(CentralWidget(0)->size(), QSize(500, 300));
    ResizeNumberedWindow(0, 70, 80, kKeep, 250);
    TakeEvents();
    EXPECT_EQ(CentralWidget(0)->size(), QSize(500, 250));
    EXPECT_EQ(WindowX(0, WindowMeasure::kFrame), 70);
    EXPECT_EQ(WindowY(0, WindowMeasure::kFrame), 80);
}

TEST_F(Windows, FlagsBecomeTheFrame) {
    OpenNumberedWindow(1, 0, 0, 200, 100, "all", kStandardWindowFlags);
    OpenNumberedWindow(2, 0, 0, 200, 100, "help", kHelpWindowFlags);
    OpenNumberedWindow(3, 0, 0, 200, 100, "fixed", kWindowClose + kWindowMinimize);
    OpenNumberedWindow(4, 0, 0, 200, 80, "centred", kWindowCentredOnParent, 1);
    EXPECT_FALSE(WidgetOfWindow(2)->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(WidgetOfWindow(3)->windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_EQ(WidgetOfWindow(3)->minimumSize(), WidgetOfWindow(3)->maximumSize());
    EXPECT_NE(WidgetOfWindow(2)->minimumSize(), WidgetOfWindow(2)->maximumSize());
    const QPoint off =
        WidgetOfWindow(4)->geometry().center() - WidgetOfWindow(1)->geometry().center();
    EXPECT_LT(off.manhattanLength(), 8);  // the frame's own width is not known beforehand
    EXPECT_EQ(WidgetOfWindow(4)->parentWidget(), WidgetOfWindow(1));
}

TEST_F(Windows, WhatHappensToOneIsAnEventAndBurstsCollapse) {
    QWidget* const window = WidgetOfWindow(0);
    const std::pair<int, std::function<void()>> rows[] = {
        {kEventSizeWindow, [=] { window->resize(410, 310), window->resize(420, 320); }},
        {kEventMoveWindow, [=] { window->move(90, 95); }},
        {kEventMinimizeWindow, [=] { window->showMinimized(); }},
        {kEventMaximizeWindow, [=] { window->showMaximized(); }},
        {kEventRestoreWindow, [=] { window->showNormal(); }},
        {kEventCloseWindow, [=] { window->close(); }},
    };
    for (const auto& [event, act] : rows) {
        act();
        EXPECT_EQ(TakeEvents(event).size(), 1u) << event;
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
    EXPECT_FALSE(WindowIsOpen(161));
    EXPECT_FALSE(WindowIsOpen(183));
    EXPECT_FALSE(GadgetExists(166));
    EXPECT_FALSE(GadgetExists(168));
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

TEST_F(Notice, LeavesTheFocusAndTakesTheNextOnesText) {
    ButtonGadget(62, 10, 10, 80, 20, "Connect");
    FocusGadget(62);
    TakeEvents();
    ShowNotice("Selection copied to clipboard", 1);
    EXPECT_EQ(FocusedGadget(), 62);
    EXPECT_EQ(GadgetText(kNoticeText), "Selection copied to clipboard");
    while (WaitForEvent(5000) != kEventTimer) ASSERT_NE(EventNumber(), kNoEvent);
    ShowNotice("another", 1000);
    EXPECT_EQ(GadgetText(kNoticeText), "another");
    CloseNotice();
    CloseNotice();
}

// What a blocking procedure did must be on the screen before it sleeps.
TEST_F(Painting, FlushShowsChangesWithoutTheLoop) {
    ButtonGadget(62, 10, 10, 80, 20, "Connect");
    TakeEvents();
    struct PaintCounter : QObject {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint;
            return false;
        }
    } counter;
    FlushPainting();
    WidgetOfGadget(62)->installEventFilter(&counter);
    FlushPainting();
    EXPECT_EQ(counter.paints, 0);  // nothing changed
    SetGadgetText(62, "Disconnect");
    FlushPainting();
    EXPECT_EQ(counter.paints, 1);
}

}  // namespace

// Menus and their ticks, window timers.

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "tests/support/Chosen.h"
#include "tests/support/Gestures.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/windows/MenuItem.h"

namespace {

// All actions of an item, wherever they stand.
QList<QAction*> ActionsOf(int item) {
    QList<QAction*> actions;
    for (QWidget* widget : QApplication::allWidgets()) {
        for (QAction* action :
             widget->findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly)) {
            const QVariant number = action->property("PB_MenuItem");
            if (number.isValid() && number.toInt() == item) actions += action;
        }
    }
    return actions;
}

// A key by the window system's road, on which menus come before the focus.
void PressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(WidgetOfWindow(kTestWindow)->windowHandle(), Qt::Key(key), modifiers);
}

using Menus = WithWindow;
using Timers = WithWindow;

TEST_F(Menus, AnItemRaisesItsNumberFromEveryMenuThatHoldsIt) {
    CreateMenuBar(kMainMenu, kTestWindow);
    MenuTitle("Edit");
    MenuItem(kItemPasteText, "Paste text");
    CreatePopupMenu(kPopupMenu);
    MenuItem(kItemPasteText, "Paste text");
    ShowPopupMenu(kPopupMenu, kTestWindow);
    TakeEvents();
    const QList<QAction*> actions = ActionsOf(kItemPasteText);
    ASSERT_EQ(actions.size(), 2);
    for (QAction* action : actions) {
        action->trigger();
        EXPECT_EQ(TakeEvents(kEventMenu), (Events{{kEventMenu, kTestWindow, kItemPasteText, 0}}));
    }
    ShowPopupMenu(99, kTestWindow);
    ShowPopupMenu(kPopupMenu, 99);
}

TEST_F(Menus, TheTickIsTheProgramsAlone) {
    CreateMenuBar(kMainMenu, kTestWindow);
    MenuTitle("View");
    MenuItem(185, "Presets");
    EXPECT_FALSE(MenuItemTick(185));
    SetMenuItemTick(185, true);
    CreatePopupMenu(kPopupMenu);
    MenuItem(185, "Presets");  // a later menu shows the tick as well
    for (QAction* action : ActionsOf(185)) EXPECT_TRUE(action->isChecked());
    ActionsOf(185)[0]->trigger();  // the toolkit would flip it
    for (QAction* action : ActionsOf(185)) EXPECT_TRUE(action->isChecked());
    EXPECT_TRUE(MenuItemTick(185));
    SetMenuItemTick(185, false);
    ActionsOf(185)[0]->trigger();
    for (QAction* action : ActionsOf(185)) EXPECT_FALSE(action->isChecked());
}

TEST_F(Menus, AltOpensThemWhereTheUserChoseSo) {
    const Chosen alt(&Choices::altOpensMenus);
    CanvasGadget(kTerminalCanvas, 0, 0, 100, 100, kCanvasKeyboard);
    CreateMenuBar(kMainMenu, kTestWindow);
    for (const char* title : {"Setup", "Edit"}) {
        MenuTitle(title);
        MenuItem(kItemPasteText, "Paste text");
    }
    FocusGadget(kTerminalCanvas);
    TakeEvents();
    PressKey(Qt::Key_Alt);
    EXPECT_TRUE(qobject_cast<QMenuBar*>(QApplication::focusWidget()));
    PressKey(Qt::Key_Escape);
    PressKey(Qt::Key_E, Qt::AltModifier);
    const auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(open);
    EXPECT_EQ(open->title(), "&Edit");
}

TEST_F(Timers, FireWithTheirNumberUntilRemoved) {
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
    RemoveWindowTimer(kTestWindow, 114);
    RemoveWindowTimer(kTestWindow, 115);
    RemoveWindowTimer(kTestWindow, 115);
    RemoveWindowTimer(99, 115);
    AddWindowTimer(99, 115, 1);
    EXPECT_TRUE(TakeEvents(kEventTimer).empty());
    EXPECT_EQ(WaitForEvent(20), kNoEvent);
}

}  // namespace

// What a user does, sent straight to the widgets, and the events that come of it.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>

#include "base/Numbers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/windows/Windows.h"

constexpr int kTestWindow = 0;

// Serves the toolkit until no event waits.
inline void TakeEvents() {
    while (WaitForEvent(0) != kNoEvent) {
    }
}

// Opens a sizable window of 400 by 300 with a gadget list, and takes its first events.
inline void OpenTestWindow() {
    OpenNumberedWindow(kTestWindow, 50, 60, 400, 300, "Test", kStandardWindowFlags);
    TakeEvents();
}

struct WithWindow : testing::Test {
    WithWindow() { OpenTestWindow(); }
};

inline QWidget* WidgetWith(const char* property, int number) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->property(property) == number) return widget;
    }
    return nullptr;
}
inline QWidget* WidgetOfGadget(int gadget) {
    return WidgetWith("PB_GadgetID", gadget);
}
inline QWidget* WidgetOfWindow(int window) {
    return WidgetWith("PB_WindowID", window);
}

inline void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
                      Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}
inline void Press(QWidget* widget, QPoint at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonPress, at, button, button);
}
inline void Release(QWidget* widget, QPoint at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}
inline void Click(QWidget* widget, QPoint at = QPoint(5, 5)) {
    Press(widget, at, Qt::LeftButton);
    Release(widget, at, Qt::LeftButton);
}
// The second press and release, behind a Click.
inline void ClickAgain(QWidget* widget, QPoint at) {
    SendMouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
    Release(widget, at, Qt::LeftButton);
}
inline void Move(QWidget* widget, QPoint to, Qt::MouseButtons held) {
    SendMouse(widget, QEvent::MouseMove, to, Qt::NoButton, held);
}
inline void Turn(QWidget* widget, int wheelUnits) {
    const QPoint at(5, 5);
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, wheelUnits), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}
inline void Key(QWidget* widget, int key, const QString& text = QString(),
                Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
}

// Drags something over a widget and drops it there; true when it was taken as a copy.
inline bool Drop(QWidget* target, const QMimeData& data) {
    constexpr auto kOffered = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter({5, 5}, kOffered, &data, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop({5, 5}, kOffered, &data, Qt::LeftButton, Qt::NoModifier);
    for (QDropEvent* event : {static_cast<QDropEvent*>(&enter), &drop}) {
        event->setDropAction(Qt::MoveAction);
        QApplication::sendEvent(target, event);
        if (!event->isAccepted()) return false;
    }
    return target->acceptDrops() && drop.dropAction() == Qt::CopyAction;
}

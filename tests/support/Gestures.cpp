#include "tests/support/Gestures.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

QWidget* WidgetWith(const char* property, int number) {
    for (QWidget* widget : QApplication::allWidgets()) {
        const QVariant value = widget->property(property);
        if (value.isValid() && value.toInt() == number) return widget;
    }
    return nullptr;
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at, Qt::MouseButton button,
               Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

}  // namespace

void OpenTestWindow() {
    OpenNumberedWindow(kTestWindow, 50, 60, 400, 300, "Test", kStandardWindowFlags);
    TakeEvents();
}

QWidget* WidgetOfGadget(int gadget) {
    return WidgetWith("PB_GadgetID", gadget);
}

QWidget* WidgetOfWindow(int window) {
    return WidgetWith("PB_WindowID", window);
}

Events TakeEvents(int32_t number) {
    Events seen;
    while (WaitForEvent(0) != kNoEvent) {
        if (number == kNoEvent || number == EventNumber())
            seen.push_back({EventNumber(), EventWindow(), EventObject(), EventType()});
    }
    return seen;
}

void Press(QWidget* widget, QPoint at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonPress, at, button, button);
}

void Release(QWidget* widget, QPoint at, Qt::MouseButton button) {
    SendMouse(widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void Click(QWidget* widget, QPoint at) {
    Press(widget, at, Qt::LeftButton);
    Release(widget, at, Qt::LeftButton);
}

void ClickAgain(QWidget* widget, QPoint at) {
    SendMouse(widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
    Release(widget, at, Qt::LeftButton);
}

void Move(QWidget* widget, QPoint to, Qt::MouseButtons held) {
    SendMouse(widget, QEvent::MouseMove, to, Qt::NoButton, held);
}

void Turn(QWidget* widget, int wheelUnits) {
    const QPointF at(5, 5);
    QWheelEvent event(at, widget->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, wheelUnits),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void Key(QWidget* widget, int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
}

bool Drop(QWidget* target, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    enter.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPoint(5, 5), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

#include "ui/events/NumberedWidgets.h"

#include <QApplication>
#include <QVariant>

#include "ui/events/EventQueue.h"

namespace {

int NumberIn(const QObject* object, const char* property) {
    const QVariant value = object ? object->property(property) : QVariant();
    return value.isValid() ? value.toInt() : -1;
}

}  // namespace

int GadgetOf(const QObject* object) {
    return NumberIn(object, kGadgetProperty);
}

int GadgetAround(const QWidget* widget) {
    int gadget = -1;
    for (; widget && gadget < 0; widget = widget->parentWidget()) gadget = GadgetOf(widget);
    return gadget;
}

int WindowOf(const QWidget* widget) {
    return widget ? NumberIn(widget->window(), kWindowProperty) : -1;
}

// A window that was closed and still waits to be deleted has lost its number.
QWidget* WindowWidget(int window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (window >= 0 && NumberIn(widget, kWindowProperty) == window) return widget;
    }
    return nullptr;
}

void RaiseWindowEvent(int window, int number) {
    if (!WindowWidget(window)) return;
    InterfaceEvent event;
    event.number = number;
    event.window = window;
    RaiseInterfaceEvent(event);
}

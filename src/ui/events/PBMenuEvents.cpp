#include "ui/events/PBMenuEvents.h"

#include <QVariant>

#include "base/Numbers.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"

namespace {

PBMenuEvents menuEvents;

// Shortcuts are menu events without a menu; both have type 0.
void RaiseMenuEvent(int window, int item, uint32_t flags) {
    InterfaceEvent event;
    event.number = kEventMenu;
    event.flags = flags;
    event.object = item;
    event.window = window;
    RaiseInterfaceEvent(event);
}

}  // namespace

PBMenuEvents* MenuEvents() {
    return &menuEvents;
}

void PBMenuEvents::ItemChosen() {
    const int item = sender()->property(kMenuItemProperty).toInt();
    const QObject* menu = sender()->parent();
    const QVariant window = menu ? menu->property(kMenuWindowProperty) : QVariant();
    RaiseMenuEvent(window.isValid() ? window.toInt() : -1, item, 0);
}

// A key of the user, never merged: each press counts.
void PBMenuEvents::ShortcutPressed() {
    const int window = WindowOf(qobject_cast<const QWidget*>(sender()->parent()));
    if (window < 0) return;
    RaiseMenuEvent(window, sender()->property(kShortcutProperty).toInt(), kEventUnmerged);
}

#include "ui/PBMenuEvents.h"

#include <QVariant>

#include "base/Numbers.h"
#include "ui/InterfaceEvent.h"
#include "ui/MenuTable.h"
#include "ui/PBQMainWindow.h"
#include "ui/WindowTable.h"

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

// The toolkit has flipped the tick of a checkable item by now. What the program set is
// what stands.
void PBMenuEvents::ItemChosen() {
    const int item = sender()->property(kMenuItemProperty).toInt();
    RestoreItemTick(item);
    RaiseMenuEvent(MenuWindow(sender()), item, 0);
}

// A key of the user, never merged: each press counts.
void PBMenuEvents::ShortcutPressed() {
    const auto* window = qobject_cast<const PBQMainWindow*>(sender()->parent());
    if (!window || FindWindow(window->Number()) != window) return;
    RaiseMenuEvent(window->Number(), sender()->property(kShortcutProperty).toInt(), kEventUnmerged);
}

#include "ui/events/AddKeyboardShortcut.h"

#include <QShortcut>
#include <QVariant>

#include "ui/events/NumberedWidgets.h"
#include "ui/events/PBMenuEvents.h"

namespace {

// All shortcuts of a window, or those of one key.
QList<QShortcut*> ShortcutsOf(const QWidget& window, int key) {
    QList<QShortcut*> found;
    for (QShortcut* shortcut :
         window.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (key == -1 || shortcut->key() == QKeySequence(key)) found += shortcut;
    }
    return found;
}

}  // namespace

// A shortcut is a child of its window and holds for every gadget in it.
void AddKeyboardShortcut(int window, int key, int number) {
    QWidget* const found = WindowWidget(window);
    if (!found || key == -1) return;
    RemoveKeyboardShortcut(window, key);
    auto* shortcut = new QShortcut(QKeySequence(key), found);
    shortcut->setProperty(kShortcutProperty, number);
    QObject::connect(shortcut, &QShortcut::activated, MenuEvents(), &PBMenuEvents::ShortcutPressed);
}

// Off at once, so that the key is free again; deleted later, since it may be the one whose
// press is being handled.
void RemoveKeyboardShortcut(int window, int key) {
    QWidget* const found = WindowWidget(window);
    if (!found) return;
    for (QShortcut* shortcut : ShortcutsOf(*found, key)) {
        shortcut->setEnabled(false);
        shortcut->setParent(nullptr);
        shortcut->deleteLater();
    }
}

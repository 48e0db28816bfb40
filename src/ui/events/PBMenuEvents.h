// Turns menu actions and shortcuts into event 1.
#pragma once

#include <QObject>

// The dynamic properties that hold the numbers of an action, of the window that its menu
// belongs to or was shown over, and of a shortcut.
constexpr char kMenuItemProperty[] = "PB_MenuItem";
constexpr char kMenuWindowProperty[] = "PB_MenuWindow";
constexpr char kShortcutProperty[] = "PB_ShortcutID";

class PBMenuEvents : public QObject {
    Q_OBJECT
  public Q_SLOTS:
    void ItemChosen();
    void ShortcutPressed();
};

// The one receiver of all their signals.
PBMenuEvents* MenuEvents();

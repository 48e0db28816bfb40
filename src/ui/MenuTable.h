// What the layer's own files need of the menus. Interface thread.
#pragma once

#include <QObject>

// Sets the tick of an item anew as the program set it.
void RestoreItemTick(int item);

// The window that the menu of an action belongs to or was shown over, -1 for none.
int MenuWindow(const QObject* action);

// Forgets all menus and items. The menus of closed windows are gone already.
void DropMenus();

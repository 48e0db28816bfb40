// Menus and their items. Choosing an item raises event 1 with its number. One number
// may stand in several menus. Interface thread.
#pragma once

#include <QString>

// Gives a window a menu bar of this menu number; titles and items follow.
void CreateMenuBar(int menu, int window);
// Creates a pop-up menu; items follow.
void CreatePopupMenu(int menu);
void MenuTitle(const QString& title);
void MenuItem(int item, const QString& text);

// The tick of an item, in every menu that holds it. An item can be ticked whether or
// not it was created with a tick.
void SetMenuItemTick(int item, bool ticked);
bool MenuItemTick(int item);
// Ticks one of items `first` to `last` and unticks the others.
void TickOneOf(int first, int last, int ticked);
QString MenuItemText(int item);

// Shows a pop-up menu at the pointer, over a window, and returns at once.
void ShowPopupMenu(int menu, int window);

// Forgets all menus and items, at the layer's end. The menus of closed windows are gone already.
void DropMenus();

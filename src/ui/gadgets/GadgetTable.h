// The table of gadgets by number, and the list that gadgets are created in. Interface
// thread.
#pragma once

class QWidget;

// The widget of a gadget; null for none.
QWidget* GadgetWidget(int gadget);

void FreeGadget(int gadget);
// Frees every gadget that lies in a widget, at any depth.
void FreeGadgetsIn(const QWidget* widget);

// Takes a widget off the screen now, closes the gadget lists in it, and deletes it when no
// handler of its own can be running any more.
void RetireWidget(QWidget* widget);

// Opens a gadget list: gadgets created next lie in `parent`, until CloseGadgetList, which
// ends the list opened last by a window or container.
void OpenGadgetList(QWidget* parent);
void CloseGadgetList();

// The table of gadgets by number, and the list that gadgets are created in. Interface
// thread.
#pragma once

#include <QFont>
#include <QObject>
#include <QRect>
#include <QWidget>

class PBGadgetFunctions;

// The gadget of a number; null for none.
PBGadgetFunctions* FindGadget(int gadget);

// The number of the window that a gadget lies in, -1 for none.
int GadgetWindow(int gadget);

// The beginning of each creation: frees a gadget of that number and gives the parent of
// the new one's widget. Null, and nothing is to be created, when no gadget list is open or
// the number is below 0.
QWidget* BeginGadget(int gadget);
// Its end: gives the widget place, font and event filter, shows it and enters it in the
// table, which owns it from here on.
void EnterGadget(PBGadgetFunctions* functions, const QRect& place);

// Font of the gadgets created from here on.
void SetDefaultGadgetFont(const QFont& font);

// Frees every gadget that lies in a widget, at any depth.
void FreeGadgetsIn(const QWidget* widget);

// Takes a widget off the screen now, closes the gadget lists in it, and deletes it when no
// handler of its own can be running any more.
void RetireWidget(QWidget* widget);

// Opens a gadget list: gadgets created next lie in `parent`, until CloseGadgetList.
void OpenGadgetList(QWidget* parent);

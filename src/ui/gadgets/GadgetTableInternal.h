// Entering gadgets in the table and finding them there. Interface thread.
#pragma once

#include <QFont>
#include <QRect>
#include <QWidget>

class PBGadgetFunctions;

// The gadget of a number; null for none.
PBGadgetFunctions* FindGadget(int gadget);

// The beginning of each creation: frees a gadget of that number and gives the parent of
// the new one's widget. Null, and nothing is to be created, when no gadget list is open or
// the number is below 0.
QWidget* BeginGadget(int gadget);
// Its end: gives the widget place, font and event filter, shows it and enters it in the
// table, which owns it from here on.
void EnterGadget(PBGadgetFunctions* functions, const QRect& place);

// Font of the gadgets created from here on.
void SetDefaultGadgetFont(const QFont& font);

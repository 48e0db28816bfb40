// What can be done to any gadget, whatever its kind. A gadget is created by the call
// of its kind (ButtonGadget.h, ComboBoxGadget.h and so on) inside the open gadget list
// and addressed by its number from then on. A call with an unknown number does nothing
// and gives 0 or an empty text. All on the interface thread.
#pragma once

#include <QString>

#include "ui/events/BoundHandlers.h"

bool GadgetExists(int gadget);

void HideGadget(int gadget, bool hidden);
bool GadgetHidden(int gadget);
void DisableGadget(int gadget, bool disabled);
bool GadgetDisabled(int gadget);

// Text of a button, text, check box, entry, combo box (the shown text) or path box;
// for lists the text of the selected row.
void SetGadgetText(int gadget, const QString& text);
QString GadgetText(int gadget);

// State: 0 or 1 of a check box or a button that shows one, selected row of a list or combo box (-1
// for none), position of a scroll bar or splitter.
void SetGadgetState(int gadget, int state);
int GadgetState(int gadget);

// Moves and sizes; kKeep of base/Numbers.h leaves a value as it is. Coordinates are
// relative to the window's inner area or the container.
void ResizeGadget(int gadget, int x, int y, int width, int height);
int GadgetX(int gadget);
int GadgetY(int gadget);
int GadgetWidth(int gadget);
int GadgetHeight(int gadget);

void FocusGadget(int gadget);
// Number of the gadget with the keyboard focus, -1 for none.
int FocusedGadget();

// The tip is the gadget's name to assistive programs as well, until it is given another.
void SetGadgetTooltip(int gadget, const QString& text);
QString GadgetTooltip(int gadget);

// What a screen reader calls the gadget: the name it was given, its tip, or its text.
void SetGadgetName(int gadget, const QString& name);
QString GadgetName(int gadget);

// Gives a gadget a font of Fonts.h; gadget -1 sets the default of gadgets created from
// here on.
void SetGadgetFont(int gadget, int font);

// Items of combo boxes and lists, counted from 0.
void AddGadgetItem(int gadget, const QString& text);
void ClearGadgetItems(int gadget);
int GadgetItemCount(int gadget);
QString GadgetItemText(int gadget, int item);
// True when the row of a list is selected.
bool GadgetItemSelected(int gadget, int item);
void SetGadgetItemSelected(int gadget, int item, bool selected);
// True when the row of an explorer list is a file, not a folder.
bool GadgetItemIsFile(int gadget, int item);
// Width in pixels of a column of an explorer list, counted from 0.
int GadgetColumnWidth(int gadget, int column);
void SetGadgetColumnWidth(int gadget, int column, int width);

// Binds a procedure to a gadget's events of one sub-type, or of all. It runs from the layer
// itself; the event is queued all the same. A second binding under the same key replaces the
// first.
void BindGadgetHandler(int gadget, EventHandler handler, int64_t type = kAny);

// A push button. A click raises event 3 with type 0.
#pragma once

#include <QString>

void ButtonGadget(int gadget, int x, int y, int width, int height, const QString& text);

// Gives a button its text and makes it usable.
void LabelButton(int gadget, const QString& text);

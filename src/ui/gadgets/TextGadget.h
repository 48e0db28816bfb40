// A line of plain text. Raises nothing.
#pragma once

#include <QString>

void TextGadget(int gadget, int x, int y, int width, int height, const QString& text);

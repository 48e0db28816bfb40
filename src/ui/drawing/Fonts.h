// Numbered fonts. Interface thread.
#pragma once

#include <QString>

class QFont;

constexpr int kFontPlain = 0;
constexpr int kFontBold = 1;
constexpr int kAnyFont = -1;  // asks for a new number

// Loads a font and returns its number: `font` itself, or a new one for kAnyFont.
// `size` is in points. A family that the system lacks is replaced by the nearest.
int LoadNumberedFont(int font, const QString& name, int size, int style);
void FreeNumberedFont(int font);

// Null for a number that no font has. The font stays until it is freed or replaced.
const QFont* NumberedFont(int font);

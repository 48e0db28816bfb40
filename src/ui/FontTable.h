// The fonts behind the numbers of Fonts.h, for the rest of this folder. Interface thread.
#pragma once

#include <QFont>

// Of a font's glyphs, in canvas units. 0 for a number that no font has.
struct FontMeasures {
    int height = 0;
    int ascent = 0;
};

// Null for a number that no font has. The font stays until it is freed or replaced.
const QFont* NumberedFont(int font);
const FontMeasures& MeasuresOf(int font);

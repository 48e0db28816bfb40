// The measures of numbered fonts. Interface thread.
#pragma once

// Of a font's glyphs, in canvas units. 0 for a number that no font has.
struct FontMeasures {
    int height = 0;
    int ascent = 0;
};

const FontMeasures& MeasuresOf(int font);

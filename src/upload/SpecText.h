// Steps on text that the readers of directive lines share. All take time in proportion
// to the text, whatever stands in it. Pure.
#pragma once

#include <QString>

// What stands before the first LF; the whole text if there is none.
QString FirstLineOf(const QString& text);

// Replaces each pair of blanks by one blank in one pass from the left. A run of n blanks
// comes out as (n + 1) / 2 of them, so a long run needs several passes.
QString MergeBlankPairs(const QString& text);

// The part of `text` from `start` up to the next blank or the end.
QString WordAt(const QString& text, int start);

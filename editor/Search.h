// Finding and replacing in the text area.
#pragma once

#include <QString>

class QsciScintilla;

struct SearchWish {
    QString words;
    bool matchCase = false;
    bool wholeWord = false;
    bool pattern = false;  // POSIX regular expression, within a line
};

// Selects the next place behind, or before, the selection; beyond the end it goes on from the
// other one. False, and the selection stays, where there is none.
bool FindNext(QsciScintilla& text, const SearchWish& wish, bool backwards);

// Replaces the selection if it is a place that was found, and goes to the next one. In the
// replacement for a pattern \1 to \9 stand for its groups.
bool ReplaceNext(QsciScintilla& text, const SearchWish& wish, const QString& by);

// Replaces all places as one step of undo, and gives their number.
int ReplaceAll(QsciScintilla& text, const SearchWish& wish, const QString& by);

// Making comments of lines, and lines of comments.
#pragma once

class QsciScintilla;

// For the lines of the selection, or the line of the cursor. When all of them are comments
// their marks go; else each that holds something gets one.
void ToggleComments(QsciScintilla& text);

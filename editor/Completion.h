// The list of words that go on as what is being typed does: BASIC's own and the names of the
// text.
#pragma once

class QsciScintilla;

// Opens the list for the word at the cursor, if there is anything to choose from. Unless it is
// `asked` for, only from the third letter on, and in code alone.
void OfferWords(QsciScintilla& text, bool asked);

// Whether the list is open and its choice is what stands there already, so that Return means
// the end of the line.
bool WordIsWhole(const QsciScintilla& text);

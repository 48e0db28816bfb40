// The device specification: one line of words that says which board this is, where it
// hangs, and what is to happen around an upload. It stands in the first line of a source
// as a comment, in the window's specification field, and in a preset. Words are parted by
// blanks; a word is "key" or "key\value". A specification cannot fail: what is unknown is
// passed over, what is missing reads as empty. Interface thread.
#pragma once

#include <QString>

// Parses the first line into the live options. The parsed text with "\n" added,
// crunched if that line says so. The family, the line ending and the link stay as they
// are when the line has no word for them.
QString ApplyDeviceSpec(const QString& text);
// "name:speed" into the port, the speed and their gadgets. No ":" gives an empty speed.
void SetPortAndSpeed(const QString& text);

// The older form of a directive line. It is read by substring tests, each for a word with
// its leading blank, so order does not count and a longer word that begins alike fits as
// well: " command" is also found by the test for " com". Interface thread.
#pragma once

#include <QString>

// Reads the options from the first line of `text`; the text, crunched if the line says so.
QString ApplyOnloadLine(const QString& text);

// The escape language of macro texts and of the device families' end codes.
#pragma once

#include <QString>

// Expands the backslash codes: \c \b \t \n \v \f \r \e give bytes 3 and 8 to 13 and 27,
// \xHH and \DDD the byte of that number, \q a double quote, \d today's date and \h the
// time; any other character stands for itself. A plain last character of a longer text,
// or a code of one letter there, is dropped: only the digits of a number reach the end.
// Interface thread.
QString ExpandMacroText(const QString& text);

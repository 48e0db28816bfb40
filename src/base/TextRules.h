// The small rules by which the program reads and shapes text. Text is a QString: a
// run of 16-bit code units. All are pure; any thread may call them.
#pragma once

#include <QString>
#include <cstdint>

// The text-to-integer rule: strtol(3) in base 10 on the text, or, behind a leading
// "$", in base 16. Leading blanks are skipped, reading stops at the first character
// that fits no more, no digits give 0, and a value beyond 64 bits is held at the
// nearest end of the range.
int64_t TextToInteger(const QString& text);

// As TextToInteger, cut to its low 32 bits, for settings that are kept as such.
int32_t TextToInteger32(const QString& text);

// Field `index`, counted from 1, of `text` split at each `separator`. Empty when
// there are fewer fields, and for an index below 1.
QString FieldOf(const QString& text, int index, QChar separator);

// `text` without the blanks (character 32 alone) at both ends.
QString TrimBlanks(const QString& text);

// `text` without the blanks and tabs at both ends.
QString TrimBlanksAndTabs(const QString& text);

// The part of a path behind its last "/", with its extension. Empty for a folder
// path that ends in "/".
QString NamePart(const QString& path);

// The part of a path up to and with its last "/"; empty when it holds none.
QString FolderPart(const QString& path);

// What stands behind the last "." of a path's name part, without the "."; empty
// when there is none. Case is kept.
QString ExtensionPart(const QString& path);

// Replaces each `before` in `text` by `after` without regard to case.
QString ReplaceAnyCase(QString text, const QString& before, const QString& after);

// A byte as a text of one character of that number.
QString ByteText(int value);

// A date and time by a mask: %yyyy %yy %mm %dd %hh %ii %ss stand for the four-digit
// and two-digit year, month, day, hour, minute and second, each padded with zeros.
// Other characters stand for themselves. `seconds` counts from 1970-01-01 00:00 in
// civil time; no zone is applied.
QString FormatDate(const QString& mask, int64_t seconds);

// A 24-bit colour in BBGGRR order as the settings file holds it: "$" and six
// upper-case hexadecimal digits. Of a longer value the last six digits stand.
QString FormatColour(int64_t value);

#include "shell/MacroText.h"

#include "base/Pacing.h"
#include "base/TextRules.h"

namespace {

constexpr int kHexDigits = 2;
constexpr int kDecimalDigits = 3;
constexpr int kByteMask = 0xFF;

struct LetterCode {
    char letter;
    int byte;
};

constexpr LetterCode letterCodes[] = {{'c', 3},  {'b', 8},  {'t', 9},  {'n', 10}, {'v', 11},
                                      {'f', 12}, {'r', 13}, {'e', 27}, {'q', '"'}};

QString NumberByte(const QString& number) {
    return ByteText(static_cast<int>(TextToInteger(number) & kByteMask));
}

// The meaning of the character at `at`, which stands behind a backslash. Moves `at` over
// the digits that belong to it.
QString ExpandCode(const QString& text, int* at) {
    const QChar code = text[*at];
    const QChar letter = code.toLower();
    for (const LetterCode& row : letterCodes) {
        if (letter == row.letter) return ByteText(row.byte);
    }
    if (letter == 'd') return FormatDate("%dd/%mm/%yyyy", WallClock());
    if (letter == 'h') return FormatDate("%hh:%ii:%ss", WallClock());
    if (letter == 'x') {
        const QString digits = text.mid(*at + 1, kHexDigits);
        *at += kHexDigits;
        return NumberByte("$" + digits);
    }
    if (code >= '0' && code <= '9') {
        const QString digits = text.mid(*at, kDecimalDigits);
        *at += kDecimalDigits - 1;
        return NumberByte(digits);
    }
    return code;
}

}  // namespace

QString ExpandMacroText(const QString& text) {
    QString result;
    bool escape = false;
    const int last = text.size() - 1;
    // The first character is always taken, the last of a longer text never by itself.
    for (int at = 0; at < last || (at == 0 && last == 0); ++at) {
        if (escape) {
            escape = false;
            result += ExpandCode(text, &at);
        } else if (text[at] == '\\') {
            escape = true;
        } else {
            result += text[at];
        }
    }
    return result;
}

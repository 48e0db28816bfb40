#include "ui/PBInputValidator.h"

#include <algorithm>

QValidator::State PBInputValidator::validate(QString& text, int&) const {
    // Digits of other scripts are no numbers to the program.
    const auto isDigit = [](QChar c) { return c >= '0' && c <= '9'; };
    return std::all_of(text.cbegin(), text.cend(), isDigit) ? Acceptable : Invalid;
}

// Light or dark, and what lies between two colours.
#pragma once

#include <QPalette>

// Whether texts stand on a dark ground.
inline bool IsDark(const QPalette& palette) {
    return palette.base().color().lightness() < 128;
}

// `percent` of the way from one colour to the other.
inline QColor Between(const QColor& from, const QColor& to, int percent) {
    const auto part = [percent](int a, int b) { return a + (b - a) * percent / 100; };
    return QColor(part(from.red(), to.red()), part(from.green(), to.green()),
                  part(from.blue(), to.blue()));
}

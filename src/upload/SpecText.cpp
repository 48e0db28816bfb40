#include "upload/SpecText.h"

QString FirstLineOf(const QString& text) {
    return text.left(text.indexOf('\n'));
}

QString MergeBlankPairs(const QString& text) {
    QString merged;
    merged.reserve(text.size());
    bool pairOpen = false;  // the blank before this character waits for its second half
    for (const QChar c : text) {
        const bool second = pairOpen && c == ' ';
        if (!second) merged += c;
        pairOpen = c == ' ' && !second;
    }
    return merged;
}

QString WordAt(const QString& text, int start) {
    const int end = text.indexOf(' ', start);
    return end < 0 ? text.mid(start) : text.mid(start, end - start);
}

// What is asked of the syntax index.
#include <QSet>
#include <algorithm>

#include "editor/BasicIndex.h"

namespace {

QString PlaceOfEntry(const QString& words) {
    for (const IndexEntry& entry : BasicIndex()) {
        if (words == entry.words) return entry.place;
    }
    return QString();
}

QString PlaceOfPart(const QString& word) {
    for (const IndexEntry& entry : BasicIndex()) {
        if (QString(entry.words).split(' ').contains(word)) return entry.place;
    }
    return QString();
}

}  // namespace

const QStringList& BasicWords() {
    static const QStringList words = [] {
        QStringList all;
        for (const IndexEntry& entry : BasicIndex()) all += QString(entry.words).split(' ');
        all.sort();
        all.removeDuplicates();
        return all;
    }();
    return words;
}

bool IsBasicWord(const QString& word) {
    static const QSet<QString> words(BasicWords().begin(), BasicWords().end());
    return words.contains(word.toUpper());
}

bool BeginsEntry(const QString& word) {
    static const QSet<QString> words = [] {
        QSet<QString> first;
        for (const IndexEntry& entry : BasicIndex())
            first += QString(entry.words).section(' ', 0, 0);
        return first;
    }();
    return words.contains(word.toUpper());
}

QString PlaceInIndex(const QString& before, const QString& word, const QString& behind) {
    const QString wanted = word.toUpper();
    if (wanted.isEmpty()) return QString();
    for (const QString& words :
         {wanted + ' ' + behind.toUpper(), before.toUpper() + ' ' + wanted, wanted}) {
        const QString place = PlaceOfEntry(words);
        if (!place.isEmpty()) return place;
    }
    return PlaceOfPart(wanted);
}

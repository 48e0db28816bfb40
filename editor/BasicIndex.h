// The words of BASIC and where the syntax index tells of them.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

struct IndexEntry {
    const char* words;  // in capitals, parted by blanks: "OPTION BASE"
    const char* place;  // "data.htm#option-base"
};

// Sorted by words; the build writes it from the pages of the index.
const std::vector<IndexEntry>& BasicIndex();

// Each word of all entries once, sorted.
const QStringList& BasicWords();
// In any case of letters. A word that begins no entry, as START of "PIO START", is one of BASIC's
// only behind another.
bool IsBasicWord(const QString& word);
bool BeginsEntry(const QString& word);

// The place for the word between its neighbours in the line: a whole entry of two words goes
// before one of one word, and that before an entry in which the word only stands. Empty for
// none.
QString PlaceInIndex(const QString& before, const QString& word, const QString& behind);

#include "editor/Completion.h"

#include <Qsci/qsciscintilla.h>

#include <QRegularExpression>
#include <QSet>

#include "editor/BasicEdit.h"
#include "editor/BasicIndex.h"
#include "editor/BasicLine.h"

namespace {

constexpr int kShortestPrefix = 3;
constexpr int kMostNames = 500;  // of the text, in one list
constexpr int kMostRows = 10;

QString WordBeforeCursor(const QsciScintilla& text) {
    static const QRegularExpression word("[A-Za-z_][A-Za-z0-9_.]*\\$?$");
    return word.match(TextBeforeCursor(text)).captured();
}

// BASIC's words are spelt as the user began to.
QString SpeltAs(const QString& prefix, const QString& word) {
    if (prefix == prefix.toUpper()) return word;
    const QString small = word.toLower();
    return prefix[0].isUpper() ? word[0] + small.mid(1) : small;
}

// The names of the text but for the word that is being typed, in their first spelling.
void AddNames(const QsciScintilla& text, const QString& prefix, QStringList& words) {
    const QString whole = text.text();
    const QRegularExpression name(
        "(?<![A-Za-z0-9_.&])" + QRegularExpression::escape(prefix) + "[A-Za-z0-9_.]*[$%!]?",
        QRegularExpression::CaseInsensitiveOption);
    QSet<QString> seen = {prefix.toLower()};
    for (auto found = name.globalMatch(whole); found.hasNext() && seen.size() < kMostNames;) {
        const QString word = found.next().captured();
        if (seen.contains(word.toLower()) || IsBasicWord(word)) continue;
        seen.insert(word.toLower());
        words += word;
    }
}

}  // namespace

void OfferWords(QsciScintilla& text, bool asked) {
    const QString prefix = WordBeforeCursor(text);
    const bool fitting = asked || (prefix.size() >= kShortestPrefix && !text.isListActive() &&
                                   EndsInCode(TextBeforeCursor(text)));
    if (prefix.isEmpty() || !fitting) return;
    QStringList words;
    for (const QString& word : BasicWords()) {
        if (word.startsWith(prefix, Qt::CaseInsensitive)) words += SpeltAs(prefix, word);
    }
    AddNames(text, prefix, words);
    if (words.isEmpty()) return;
    text.SendScintilla(QsciScintilla::SCI_AUTOCSETSEPARATOR, '\n');
    text.SendScintilla(QsciScintilla::SCI_AUTOCSETIGNORECASE, 1);
    text.SendScintilla(QsciScintilla::SCI_AUTOCSETORDER, QsciScintilla::SC_ORDER_PERFORMSORT);
    text.SendScintilla(QsciScintilla::SCI_AUTOCSETMAXHEIGHT, kMostRows);
    text.SendScintilla(QsciScintilla::SCI_AUTOCSHOW, static_cast<unsigned long>(prefix.size()),
                       words.join('\n').toLatin1().constData());
}

bool WordIsWhole(const QsciScintilla& text) {
    if (!text.isListActive()) return false;
    char chosen[256] = {};
    if (text.SendScintilla(QsciScintilla::SCI_AUTOCGETCURRENTTEXT) >= long{sizeof chosen})
        return false;
    text.SendScintilla(QsciScintilla::SCI_AUTOCGETCURRENTTEXT, 0ul, static_cast<void*>(chosen));
    return WordBeforeCursor(text).compare(chosen, Qt::CaseInsensitive) == 0;
}

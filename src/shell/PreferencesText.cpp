#include "shell/PreferencesText.h"

#include <QTextCodec>
#include <algorithm>

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

// True when every byte had a meaning in the codec.
bool Decodes(const QTextCodec* codec, const QByteArray& bytes, QString* text) {
    QTextCodec::ConverterState state;
    *text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

bool IsBlank(QChar c) {
    return c == ' ' || c == '\t';
}

bool IsLineEnd(QChar c) {
    return c == '\r' || c == '\n';
}

int SkipBlanks(const QString& text, int at) {
    while (at < text.size() && IsBlank(text[at])) ++at;
    return at;
}

// The place of the first CR, LF or `stop` from `at` on, or the end of the data.
int FindEnd(const QString& text, int at, QChar stop = '\n') {
    while (at < text.size() && !IsLineEnd(text[at]) && text[at] != stop) ++at;
    return at;
}

// Each of these takes one entry that begins at `at` and returns where the scan goes on.

int TakeComment(const QString& text, int at, PreferenceEntry* entry) {
    entry->kind = PreferenceKind::kComment;
    const int start = at + (text.mid(at, 2) == "; " ? 2 : 1);
    const int end = FindEnd(text, start);
    entry->name = text.mid(start, end - start);
    return end;
}

// What stands behind the "]" is dropped.
int TakeGroup(const QString& text, int at, PreferenceEntry* entry) {
    entry->kind = PreferenceKind::kGroup;
    const int end = FindEnd(text, at + 1, ']');
    entry->name = text.mid(at + 1, end - at - 1);
    return FindEnd(text, end);
}

// The value begins one place behind whatever ended the name. So a line without "=" takes
// the next line as its value; files have always been read like that.
int TakeKey(const QString& text, int at, PreferenceEntry* entry) {
    entry->kind = PreferenceKind::kKey;
    const int stop = FindEnd(text, at, '=');
    int nameEnd = stop;
    while (nameEnd > at && IsBlank(text[nameEnd - 1])) --nameEnd;
    entry->name = text.mid(at, nameEnd - at);
    const int start = SkipBlanks(text, std::min(stop + 1, text.size()));
    const int end = FindEnd(text, start);
    entry->value = text.mid(start, end - start);
    return end;
}

int TakeEntry(const QString& text, int at, PreferenceEntry* entry) {
    if (text[at] == ';') return TakeComment(text, at, entry);
    if (text[at] == '[') return TakeGroup(text, at, entry);
    return TakeKey(text, at, entry);
}

QString OneLine(QString text) {
    return text.replace('\r', ' ').replace('\n', ' ');
}

QString FormatEntry(const PreferenceEntry& entry, int flags) {
    switch (entry.kind) {
        case PreferenceKind::kGroup:
            return "[" + OneLine(entry.name) + "]\n";
        case PreferenceKind::kComment:
            return "; " + OneLine(entry.name) + "\n";
        case PreferenceKind::kKey:
            break;
    }
    const QString between = flags & kPreferenceTightKeys ? "=" : " = ";
    return OneLine(entry.name) + between + OneLine(entry.value) + "\n";
}

}  // namespace

QString DecodePreferences(const QByteArray& bytes) {
    QString text;
    const bool valid = Decodes(QTextCodec::codecForName("UTF-8"), bytes, &text);
    if (valid || bytes.startsWith(kByteOrderMark)) return text;
    if (Decodes(QTextCodec::codecForLocale(), bytes, &text) &&
        !text.contains(QChar(QChar::ReplacementCharacter))) {
        return text;
    }
    return QLatin1String(bytes.constData(), bytes.size());
}

bool ParsePreferences(const QString& text, std::vector<PreferenceEntry>* entries) {
    int at = 0;
    while ((at = SkipBlanks(text, at)) < text.size()) {
        if (IsLineEnd(text[at])) {
            ++at;
            continue;
        }
        if (entries->size() >= kMostPreferenceEntries) return false;
        entries->emplace_back();
        at = TakeEntry(text, at, &entries->back());
    }
    return true;
}

QByteArray FormatPreferences(const std::vector<PreferenceEntry>& entries, int flags) {
    QString text = "\n";
    bool firstGroup = true;
    for (const PreferenceEntry& entry : entries) {
        if (entry.kind == PreferenceKind::kGroup) {
            if (!firstGroup && flags & kPreferenceGroupSpace) text += '\n';
            firstGroup = false;
        }
        text += FormatEntry(entry, flags);
    }
    return kByteOrderMark + text.toUtf8();
}

#include "editor/Search.h"

#include "editor/BasicEdit.h"

namespace {

using Sci = QsciScintilla;

// A stretch of the text, in bytes.
struct Stretch {
    long start, end;
};

int FlagsOf(const SearchWish& wish) {
    int flags = 0;
    if (wish.matchCase) flags |= Sci::SCFIND_MATCHCASE;
    if (wish.wholeWord) flags |= Sci::SCFIND_WHOLEWORD;
    if (wish.pattern) flags |= Sci::SCFIND_REGEXP | Sci::SCFIND_POSIX;
    return flags;
}

// The library looks at whole words only outside of patterns.
QByteArray WordsOf(const SearchWish& wish) {
    const QByteArray words = wish.words.toUtf8();
    return wish.pattern && wish.wholeWord ? "\\<" + words + "\\>" : words;
}

Stretch Target(const Sci& text) {
    return {text.SendScintilla(Sci::SCI_GETTARGETSTART), text.SendScintilla(Sci::SCI_GETTARGETEND)};
}

// Makes the first place from `range.start` towards `range.end`, which may lie before it, the
// target.
bool SearchIn(const Sci& text, const SearchWish& wish, const Stretch& range) {
    const QByteArray words = WordsOf(wish);
    text.SendScintilla(Sci::SCI_SETSEARCHFLAGS, FlagsOf(wish));
    text.SendScintilla(Sci::SCI_SETTARGETRANGE, static_cast<unsigned long>(range.start), range.end);
    return text.SendScintilla(Sci::SCI_SEARCHINTARGET, static_cast<unsigned long>(words.size()),
                              words.constData()) >= 0;
}

long StepFrom(const Sci& text, long place) {
    return text.SendScintilla(Sci::SCI_POSITIONAFTER, place);
}

Stretch Selection(const Sci& text) {
    return {text.SendScintilla(Sci::SCI_GETSELECTIONSTART),
            text.SendScintilla(Sci::SCI_GETSELECTIONEND)};
}

QByteArray Group(const Sci& text, char digit) {
    const auto number = static_cast<unsigned long>(digit - '0');
    QByteArray group(static_cast<int>(text.SendScintilla(Sci::SCI_GETTAG, number)) + 1, 0);
    text.SendScintilla(Sci::SCI_GETTAG, number, static_cast<void*>(group.data()));
    return group.left(group.size() - 1);
}

// The replacement for the last place that was found.
QByteArray WithGroups(const Sci& text, const QByteArray& by) {
    QByteArray result;
    for (int i = 0; i < by.size(); ++i) {
        const char next = i + 1 < by.size() ? by[i + 1] : 0;
        const bool group = by[i] == '\\' && next >= '0' && next <= '9';
        if (by[i] == '\\' && next) ++i;
        result += group ? Group(text, next) : QByteArray(1, by[i]);
    }
    return result;
}

// A place without a character, where the cursor stands already, would hold it for ever.
bool FindFrom(const Sci& text, const SearchWish& wish, const Stretch& range) {
    if (!SearchIn(text, wish, range)) return false;
    const Stretch found = Target(text);
    if (found.end > found.start || found.start != range.start || range.end <= range.start)
        return true;
    return SearchIn(text, wish, {StepFrom(text, range.start), range.end});
}

}  // namespace

bool FindNext(Sci& text, const SearchWish& wish, bool backwards) {
    const Stretch selected = Selection(text);
    const long end = text.length();
    const Stretch ahead = backwards ? Stretch{selected.start, 0} : Stretch{selected.end, end};
    const Stretch around = backwards ? Stretch{end, 0} : Stretch{0, end};
    if (!FindFrom(text, wish, ahead) && !SearchIn(text, wish, around)) return false;
    const Stretch found = Target(text);
    text.SendScintilla(Sci::SCI_SETSEL, found.start, found.end);
    return true;
}

bool ReplaceNext(Sci& text, const SearchWish& wish, const QString& by) {
    const Stretch selected = Selection(text);
    if (SearchIn(text, wish, selected) && Target(text).end == selected.end) {
        const QByteArray bytes = wish.pattern ? WithGroups(text, by.toUtf8()) : by.toUtf8();
        ReplaceBytes(text, selected.start, selected.end, bytes);
        const long behind = selected.start + bytes.size();
        text.SendScintilla(Sci::SCI_SETSEL, behind, behind);
    }
    return FindNext(text, wish, false);
}

// All at once: the library takes a while for each change of a text.
int ReplaceAll(Sci& text, const SearchWish& wish, const QString& by) {
    const long length = text.length();
    const QByteArray whole = text.bytes(0, static_cast<int>(length)), words = by.toUtf8();
    QByteArray result;
    long kept = 0;
    int count = 0;
    for (long from = 0; from <= length && SearchIn(text, wish, {from, length}); ++count) {
        const Stretch found = Target(text);
        result += whole.mid(static_cast<int>(kept), static_cast<int>(found.start - kept));
        result += wish.pattern ? WithGroups(text, words) : words;
        kept = found.end;
        from = found.end > found.start ? found.end : StepFrom(text, found.end);
        if (from == found.start) break;  // nothing, at the end
    }
    result += whole.mid(static_cast<int>(kept), static_cast<int>(length - kept));
    if (count > 0) ReplaceBytes(text, 0, length, result);
    return count;
}

#include "editor/BasicEdit.h"

#include <QKeyEvent>

#include "companion/Colours.h"
#include "editor/Completion.h"

namespace {

constexpr int kIndent = 4;  // blanks
constexpr int kNumbersMargin = 0;

QsciScintilla::EolMode LineEndOf(const QString& source) {
    const int end = source.indexOf(QRegExp("[\r\n]"));
    if (end < 0 || source[end] == '\n') return QsciScintilla::EolUnix;
    const bool pair = end + 1 < source.size() && source[end + 1] == '\n';
    return pair ? QsciScintilla::EolWindows : QsciScintilla::EolMac;
}

int CursorIndex(const QsciScintilla& text, int& line) {
    int index = 0;
    text.getCursorPosition(&line, &index);
    return index;
}

}  // namespace

BasicEdit::BasicEdit(QWidget* parent) : QsciScintilla(parent) {
    setUtf8(true);
    setLexer(&lexer);
    setMarginLineNumbers(kNumbersMargin, true);
    setMarginWidth(1, 0);
    SendScintilla(SCI_SETMARGINLEFT, 0ul, 4l);  // pixels
    setCaretLineVisible(true);
    setBraceMatching(SloppyBraceMatch);
    setAutoIndent(true);
    setTabIndents(true);
    setBackspaceUnindents(true);
    setIndentationsUseTabs(false);
    setIndentationWidth(kIndent);
    setTabWidth(kIndent);
    setScrollWidth(1);
    setScrollWidthTracking(true);
    setAutoCompletionThreshold(-1);  // Completion opens the list
    setAccessibleName("Source");
    connect(this, &QsciScintilla::linesChanged, this, [this] { SizeLineNumbers(); });
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, [this] { SizeLineNumbers(); });
    connect(this, &QsciScintillaBase::SCN_CHARADDED, this, [this] { OfferWords(*this, false); });
    TakeColours();
}

void BasicEdit::SetSourceFont(const QFont& wanted) {
    font = wanted;
    lexer.TakeFont(font);
    setMarginsFont(font);
    SizeLineNumbers();
}

void BasicEdit::TakeColours() {
    const QPalette& colours = palette();
    const QColor base = colours.base().color(), ink = colours.text().color();
    lexer.TakeColours(colours);
    setCaretForegroundColor(ink);
    setCaretLineBackgroundColor(Between(base, ink, 6));
    setMarginsBackgroundColor(Between(base, ink, 4));
    setMarginsForegroundColor(Between(base, ink, 55));
    setSelectionBackgroundColor(colours.highlight().color());
    setSelectionForegroundColor(colours.highlightedText().color());
    setMatchedBraceBackgroundColor(Between(base, QColor(Qt::green), 35));
    setMatchedBraceForegroundColor(ink);
    setUnmatchedBraceBackgroundColor(Between(base, QColor(Qt::red), 35));
    setUnmatchedBraceForegroundColor(ink);
}

void BasicEdit::SizeLineNumbers() {
    const QString widest = QString::number(std::max(lines(), 999));
    setMarginWidth(kNumbersMargin, "0" + QString(widest.size(), '9'));
}

void BasicEdit::ShowSource(const QString& source) {
    setEolMode(LineEndOf(source));
    setText(source);
    setModified(false);
}

void BasicEdit::ShowLine(int number) {
    const int line = std::max(0, std::min(number, lines()) - 1);
    setCursorPosition(line, 0);
    ensureLineVisible(line);
    SendScintilla(SCI_VERTICALCENTRECARET);
}

void BasicEdit::changeEvent(QEvent* event) {
    QsciScintilla::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) TakeColours();
}

void BasicEdit::keyPressEvent(QKeyEvent* event) {
    const bool lineEnd = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (lineEnd && WordIsWhole(*this)) cancelList();
    QsciScintilla::keyPressEvent(event);
}

QString TextBeforeCursor(const QsciScintilla& text) {
    int line = 0;
    const int index = CursorIndex(text, line);
    return text.text(line).left(index);
}

QString TextBehindCursor(const QsciScintilla& text) {
    int line = 0;
    const int index = CursorIndex(text, line);
    return text.text(line).mid(index);
}

void ReplaceBytes(const QsciScintilla& text, long start, long end, const QByteArray& bytes) {
    const long top = text.SendScintilla(QsciScintilla::SCI_GETFIRSTVISIBLELINE);
    text.SendScintilla(QsciScintilla::SCI_SETTARGETRANGE, static_cast<unsigned long>(start), end);
    text.SendScintilla(QsciScintilla::SCI_REPLACETARGET, static_cast<unsigned long>(bytes.size()),
                       bytes.constData());
    text.SendScintilla(QsciScintilla::SCI_SETFIRSTVISIBLELINE, top);
}

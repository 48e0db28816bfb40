// The text area of a window: a source, with what helps to write BASIC.
#pragma once

#include <Qsci/qsciscintilla.h>

#include "editor/BasicLexer.h"

class BasicEdit : public QsciScintilla {
  public:
    explicit BasicEdit(QWidget* parent);

    void SetSourceFont(const QFont& font);
    const QFont& SourceFont() const { return font; }

    // Shows a source, which then counts as unchanged and can't be undone.
    void ShowSource(const QString& source);
    // The cursor to the beginning of a line, counted from 1, in the middle of the area. Beyond
    // the end it is the last one.
    void ShowLine(int number);

  protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void TakeColours();
    void SizeLineNumbers();

    QFont font;
    BasicLexer lexer{this};
};

// The line of the cursor up to it, and from it on.
QString TextBeforeCursor(const QsciScintilla& text);
QString TextBehindCursor(const QsciScintilla& text);

// Puts bytes in place of those from `start` to `end`, as one change; the view stays where it is.
void ReplaceBytes(const QsciScintilla& text, long start, long end, const QByteArray& bytes);

// The colours of BASIC in the text area, light or dark as its ground is.
#pragma once

#include <Qsci/qscilexercustom.h>

class BasicLexer : public QsciLexerCustom {
  public:
    // `parent` owns it.
    explicit BasicLexer(QObject* parent) : QsciLexerCustom(parent) {}

    // Takes the ground and the plain colour from the palette, the others to suit them.
    void TakeColours(const QPalette& palette);
    void TakeFont(const QFont& font);

    const char* language() const override { return "BASIC"; }
    QString description(int style) const override;
    const char* wordCharacters() const override;
    bool caseSensitive() const override { return false; }
    void styleText(int start, int end) override;
};

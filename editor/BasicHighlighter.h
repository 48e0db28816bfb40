// The colours of BASIC in a text widget, light or dark as the desktop is.
#pragma once

#include <QSyntaxHighlighter>

class BasicHighlighter : public QSyntaxHighlighter {
  public:
    // `document` owns it. `dark`: the text stands on a dark ground.
    BasicHighlighter(QTextDocument* document, bool dark);

  protected:
    void highlightBlock(const QString& text) override;

  private:
    bool dark;
};

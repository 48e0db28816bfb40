// The rows under a text that look for words in it and replace them.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "editor/Search.h"

class FindBar : public QWidget {
  public:
    FindBar(QsciScintilla* searched, QWidget* parent);

    // Shows the row of words, and that of the replacement if it is wanted. What is selected in
    // the text becomes the words.
    void Ask(bool replacing);
    // Asks for words when there are none.
    void Find(bool backwards);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    SearchWish Wish() const;
    void AddRows();
    void Replace();
    void ReplaceEverywhere();
    void Tell(bool found);

    QsciScintilla* text;
    QLineEdit* words;
    QLineEdit* by;
    QCheckBox* matchCase;
    QCheckBox* wholeWord;
    QCheckBox* pattern;
    QLabel* verdict;
    QWidget* replaceRow;
};

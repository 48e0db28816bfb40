// The row under a text that looks for words in it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWidget>

class FindBar : public QWidget {
  public:
    FindBar(QPlainTextEdit* searched, QWidget* parent);

    // Shows the row, with what is selected in the text as the words.
    void Ask();
    // Selects the next place behind, or before, the cursor; beyond the end it goes on from
    // the other one. Case does not count. False when the words stand nowhere.
    bool Find(bool backwards);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPlainTextEdit* text;
    QLineEdit* words;
    QLabel* verdict;
};

// The list of a text's SUBs and FUNCTIONs, to jump by.
#pragma once

#include <QComboBox>

class BasicEdit;

class ProcedureBox : public QComboBox {
  public:
    ProcedureBox(BasicEdit* edit, QWidget* parent);

    // As the text is now, with the one that the cursor stands in chosen.
    void showPopup() override;

  private:
    BasicEdit* text;
};

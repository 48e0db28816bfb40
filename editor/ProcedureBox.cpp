#include "editor/ProcedureBox.h"

#include "editor/BasicEdit.h"
#include "editor/Procedures.h"

namespace {

constexpr int kWidth = 26;  // characters
const char kCaption[] = "SUBs and FUNCTIONs";

}  // namespace

ProcedureBox::ProcedureBox(BasicEdit* edit, QWidget* parent) : QComboBox(parent), text(edit) {
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kWidth);
    setToolTip("Go to a SUB or FUNCTION (Ctrl+J)");
    setAccessibleName(kCaption);
    addItem(kCaption, 0);
    connect(this, QOverload<int>::of(&QComboBox::activated), this, [this](int row) {
        if (itemData(row).toInt() > 0) text->ShowLine(itemData(row).toInt());
        text->setFocus();
    });
}

void ProcedureBox::showPopup() {
    int line = 0, index = 0;
    text->getCursorPosition(&line, &index);
    clear();
    addItem(kCaption, 0);
    for (const Procedure& procedure : ProceduresOf(text->text())) {
        addItem(procedure.name, procedure.line);
        if (procedure.line <= line + 1) setCurrentIndex(count() - 1);
    }
    QComboBox::showPopup();
}

#include "ui/gadgets/TextGadget.h"

#include <QLabel>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

class TextFunctions : public PBGadgetFunctions {
  public:
    TextFunctions(int gadget, QLabel* shown) : PBGadgetFunctions(gadget, shown), label(shown) {
        // What looks like markup is text all the same.
        label->setTextFormat(Qt::PlainText);
    }
    void SetText(const QString& text) override { label->setText(text); }
    QString Text() const override { return label->text(); }

  private:
    QLabel* const label;
};

// Where two lines have room a long text is broken.
bool HoldsLines(const QLabel& label, int height) {
    return height >= 2 * label.fontMetrics().lineSpacing();
}

}  // namespace

void TextGadget(int gadget, int x, int y, int width, int height, const QString& text) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* label = new QLabel(parent);
    auto* functions = new TextFunctions(gadget, label);
    functions->SetText(text);
    EnterGadget(functions, QRect(x, y, width, height));
    // Known only now: the font came with the entry into the table.
    label->setWordWrap(HoldsLines(*label, height));
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

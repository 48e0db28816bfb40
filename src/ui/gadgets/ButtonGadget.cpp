#include "ui/gadgets/ButtonGadget.h"

#include <QPushButton>

#include "ui/gadgets/Caption.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// clicked() comes for the mouse and for the keyboard alike.
class ButtonFunctions : public PBGadgetFunctions {
  public:
    ButtonFunctions(int gadget, QPushButton* shown)
        : PBGadgetFunctions(gadget, shown), button(shown) {
        connect(button, &QPushButton::clicked, this, &PBGadgetFunctions::LeftClicked);
    }
    void SetText(const QString& text) override { button->setText(ToCaption(text)); }
    QString Text() const override { return FromCaption(button->text()); }

    // Its pressed look. The program sets it again behind each click, which turns it over.
    void SetState(int state) override {
        button->setCheckable(true);
        button->setChecked(state != 0);
    }
    int State() const override { return button->isChecked() ? 1 : 0; }

  private:
    QPushButton* const button;
};

}  // namespace

void ButtonGadget(int gadget, int x, int y, int width, int height, const QString& text) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* functions = new ButtonFunctions(gadget, new QPushButton(parent));
    functions->SetText(text);
    EnterGadget(functions, QRect(x, y, width, height));
}

void LabelButton(int gadget, const QString& text) {
    SetGadgetText(gadget, text);
    DisableGadget(gadget, false);
}

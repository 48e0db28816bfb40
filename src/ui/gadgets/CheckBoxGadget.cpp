#include "ui/gadgets/CheckBoxGadget.h"

#include <QCheckBox>

#include "ui/gadgets/Caption.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// clicked(), unlike toggled(), tells of the user alone.
class CheckBoxFunctions : public PBGadgetFunctions {
  public:
    CheckBoxFunctions(int gadget, QCheckBox* shown) : PBGadgetFunctions(gadget, shown), box(shown) {
        connect(box, &QCheckBox::clicked, this, &PBGadgetFunctions::LeftClicked);
    }
    void SetText(const QString& text) override { box->setText(ToCaption(text)); }
    QString Text() const override { return FromCaption(box->text()); }
    void SetState(int state) override { box->setChecked(state != 0); }
    int State() const override { return box->isChecked() ? 1 : 0; }

  private:
    QCheckBox* const box;
};

}  // namespace

void CheckBoxGadget(int gadget, int x, int y, int width, int height, const QString& text) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* functions = new CheckBoxFunctions(gadget, new QCheckBox(parent));
    functions->SetText(text);
    EnterGadget(functions, QRect(x, y, width, height));
}

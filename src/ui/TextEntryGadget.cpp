#include "ui/TextEntryGadget.h"

#include <QLineEdit>

#include "ui/GadgetTable.h"
#include "ui/PBGadgetFunctions.h"
#include "ui/PBInputValidator.h"
#include "ui/TightStyle.h"

namespace {

// textEdited(), unlike textChanged(), tells of the user alone.
class TextEntryFunctions : public PBGadgetFunctions {
  public:
    TextEntryFunctions(int gadget, QLineEdit* shown)
        : PBGadgetFunctions(gadget, shown), entry(shown) {
        connect(entry, &QLineEdit::textEdited, this, &PBGadgetFunctions::ValueChanged);
    }
    bool ReportsFocus() const override { return true; }
    void SetText(const QString& text) override { entry->setText(text); }
    QString Text() const override { return entry->text(); }

  private:
    QLineEdit* const entry;
};

}  // namespace

void TextEntryGadget(int gadget, int x, int y, int width, int height, const QString& text,
                     EntryRule rule) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* entry = new QLineEdit(parent);
    UseTightStyle(entry);
    if (rule == EntryRule::kDigits) entry->setValidator(new PBInputValidator(entry));
    auto* functions = new TextEntryFunctions(gadget, entry);
    functions->SetText(text);
    EnterGadget(functions, QRect(x, y, width, height));
}

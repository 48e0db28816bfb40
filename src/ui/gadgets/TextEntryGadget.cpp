#include "ui/gadgets/TextEntryGadget.h"

#include <QLineEdit>
#include <QValidator>
#include <algorithm>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"
#include "ui/gadgets/TightStyleInternal.h"

namespace {

// The digit rule. Digits of other scripts are no numbers to the program.
class PBInputValidator : public QValidator {
    Q_OBJECT
  public:
    using QValidator::QValidator;

    State validate(QString& text, int&) const override {
        const auto isDigit = [](QChar c) { return c >= '0' && c <= '9'; };
        return std::all_of(text.cbegin(), text.cend(), isDigit) ? Acceptable : Invalid;
    }
};

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

#include "TextEntryGadget.moc"

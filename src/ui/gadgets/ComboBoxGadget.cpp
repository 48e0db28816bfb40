#include "ui/gadgets/ComboBoxGadget.h"

#include <QComboBox>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"
#include "ui/gadgets/TightStyleInternal.h"

namespace {

// A text that is none of the items stands above them as an entry of its own, so that the
// user can pick it again. It is not counted, and goes when something else is shown.
//
// activated(), unlike currentIndexChanged(), tells of the user alone, and of an item
// picked again as well.
class ComboBoxFunctions : public PBGadgetFunctions {
  public:
    ComboBoxFunctions(int gadget, QComboBox* shown)
        : PBGadgetFunctions(gadget, shown), combo(shown) {
        connect(combo, QOverload<int>::of(&QComboBox::activated), this,
                &PBGadgetFunctions::ValueChanged);
    }

    // Exact case: a port's name in upper case is not the port of the list.
    void SetText(const QString& text) override {
        RemoveExtra();
        const int item = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (item < 0 && !text.isEmpty()) {
            combo->insertItem(0, text);
            extra = 1;
        }
        combo->setCurrentIndex(extra ? 0 : item);
    }
    QString Text() const override { return combo->currentText(); }

    // -1 for a text that is no item, and for none at all.
    void SetState(int state) override {
        RemoveExtra();
        combo->setCurrentIndex(state);
    }
    int State() const override { return qMax(-1, combo->currentIndex() - extra); }

    // The toolkit makes the first item current; here nothing is until it is chosen.
    void AddItem(const QString& text) override {
        const int current = combo->currentIndex();
        combo->addItem(text);
        combo->setCurrentIndex(current);
    }
    void ClearItems() override {
        combo->clear();
        extra = 0;
    }
    int ItemCount() const override { return combo->count() - extra; }
    QString ItemText(int item) const override {
        return item < 0 ? QString() : combo->itemText(item + extra);
    }

  private:
    void RemoveExtra() {
        if (extra) combo->removeItem(0);
        extra = 0;
    }

    QComboBox* const combo;
    int extra = 0;  // 1 while the entry above the items is there
};

}  // namespace

void ComboBoxGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* combo = new QComboBox(parent);
    UseTightStyle(combo);
    auto* functions = new ComboBoxFunctions(gadget, combo);
    EnterGadget(functions, QRect(x, y, width, height));
}

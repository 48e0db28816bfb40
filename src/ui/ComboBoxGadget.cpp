#include "ui/ComboBoxGadget.h"

#include <QComboBox>
#include <QStylePainter>

#include "ui/GadgetTable.h"
#include "ui/PBGadgetFunctions.h"

namespace {

// A combo box that can show a text which is none of its items, until an item is chosen.
class ShownTextCombo : public QComboBox {
  public:
    explicit ShownTextCombo(QWidget* parent) : QComboBox(parent) {}

    void ShowText(const QString& text) {
        // Exact case: a port's name in upper case is not the port of the list.
        setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
        outsideText = text;
        update();
    }
    // -1 shows none.
    void ShowItem(int item) {
        setCurrentIndex(item);
        outsideText.clear();
        update();
    }
    QString ShownText() const { return currentIndex() < 0 ? outsideText : currentText(); }

  protected:
    // The toolkit's own, but for the text.
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        painter.setPen(palette().color(QPalette::Text));
        QStyleOptionComboBox option;
        initStyleOption(&option);
        option.currentText = ShownText();
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }

  private:
    QString outsideText;  // shown while no item is current
};

// activated(), unlike currentIndexChanged(), tells of the user alone, and of an item
// picked again as well.
class ComboBoxFunctions : public PBGadgetFunctions {
  public:
    ComboBoxFunctions(int gadget, ShownTextCombo* shown)
        : PBGadgetFunctions(gadget, shown), combo(shown) {
        connect(combo, QOverload<int>::of(&QComboBox::activated), this,
                &PBGadgetFunctions::ValueChanged);
    }
    void SetText(const QString& text) override { combo->ShowText(text); }
    QString Text() const override { return combo->ShownText(); }
    void SetState(int state) override { combo->ShowItem(state); }
    int State() const override { return combo->currentIndex(); }

    // The toolkit makes the first item current; here nothing is until it is chosen.
    void AddItem(const QString& text) override {
        const int current = combo->currentIndex();
        combo->addItem(text);
        combo->setCurrentIndex(current);
    }
    void ClearItems() override {
        combo->clear();
        combo->ShowItem(-1);
    }
    int ItemCount() const override { return combo->count(); }
    QString ItemText(int item) const override { return combo->itemText(item); }

  private:
    ShownTextCombo* const combo;
};

}  // namespace

void ComboBoxGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* functions = new ComboBoxFunctions(gadget, new ShownTextCombo(parent));
    EnterGadget(functions, QRect(x, y, width, height));
}

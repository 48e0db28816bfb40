#include "ui/gadgets/ListGadget.h"

#include <QListWidget>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// The toolkit tells of clicks on rows alone; one below them raises nothing.
class ListFunctions : public PBGadgetFunctions {
  public:
    ListFunctions(int gadget, QListWidget* shown) : PBGadgetFunctions(gadget, shown), list(shown) {
        list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        list->setUniformItemSizes(true);
        connect(list, &QListWidget::itemClicked, this, &PBGadgetFunctions::LeftClicked);
        connect(list, &QListWidget::itemDoubleClicked, this, &PBGadgetFunctions::LeftDoubleClicked);
    }
    QString Text() const override { return ItemText(State()); }
    // The state is the first of the selected rows.
    void SetState(int state) override {
        list->clearSelection();
        list->setCurrentRow(state);
    }
    int State() const override {
        for (int row = 0; row < list->count(); ++row) {
            if (list->item(row)->isSelected()) return row;
        }
        return -1;
    }
    void AddItem(const QString& text) override { list->addItem(text); }
    void ClearItems() override { list->clear(); }
    int ItemCount() const override { return list->count(); }
    QString ItemText(int item) const override {
        const QListWidgetItem* row = list->item(item);
        return row ? row->text() : QString();
    }
    bool ItemSelected(int item) const override {
        const QListWidgetItem* row = list->item(item);
        return row && row->isSelected();
    }
    void SetItemSelected(int item, bool selected) override {
        if (QListWidgetItem* row = list->item(item)) row->setSelected(selected);
    }

  private:
    QListWidget* const list;
};

}  // namespace

void ListGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* functions = new ListFunctions(gadget, new QListWidget(parent));
    EnterGadget(functions, QRect(x, y, width, height));
}

#include "ui/gadgets/ScrollBarGadget.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// valueChanged() comes for every road by which the user moves it: bar, arrows, page, wheel.
class ScrollBarFunctions : public PBGadgetFunctions {
  public:
    ScrollBarFunctions(int gadget, QScrollBar* shown)
        : PBGadgetFunctions(gadget, shown), bar(shown) {
        // Its own context menu would run a loop of its own and hold up the program.
        bar->setContextMenuPolicy(Qt::NoContextMenu);
        connect(bar, &QScrollBar::valueChanged, this, &PBGadgetFunctions::LeftClicked);
    }
    void SetState(int state) override {
        // The bar is set while the terminal scrolls; told of that, it would scroll again.
        const QSignalBlocker quiet(bar);
        bar->setValue(state);
    }
    int State() const override { return bar->value(); }

  private:
    QScrollBar* const bar;
};

}  // namespace

void ScrollBarGadget(int gadget, int x, int y, int width, int height, int minimum, int maximum,
                     int pageLength, ScrollDirection direction) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    const bool upright = direction == ScrollDirection::kVertical;
    auto* bar = new QScrollBar(upright ? Qt::Vertical : Qt::Horizontal, parent);
    // The last page begins one page before the end.
    bar->setRange(minimum, qMax(minimum, maximum - pageLength));
    bar->setPageStep(pageLength);
    EnterGadget(new ScrollBarFunctions(gadget, bar), QRect(x, y, width, height));
}

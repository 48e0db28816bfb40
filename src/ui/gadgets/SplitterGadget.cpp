#include "ui/gadgets/SplitterGadget.h"

#include <QSplitter>

#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

class SplitterFunctions : public PBGadgetFunctions {
  public:
    SplitterFunctions(int gadget, QSplitter* shown)
        : PBGadgetFunctions(gadget, shown), splitter(shown) {}

    // The toolkit keeps a little of each side visible and caps the position there.
    void SetState(int state) override {
        const int room = splitter->width() - splitter->handleWidth();
        const int left = qBound(0, state, qMax(0, room));
        splitter->setSizes({left, qMax(0, room - left)});
    }
    int State() const override { return splitter->sizes().value(0); }

  private:
    QSplitter* const splitter;
};

}  // namespace

// The two gadgets keep their numbers and lie in the splitter from here on.
void SplitterGadget(int gadget, int x, int y, int width, int height, int first, int second) {
    PBGadgetFunctions* const left = FindGadget(first);
    PBGadgetFunctions* const right = FindGadget(second);
    QWidget* const parent = left && right ? BeginGadget(gadget) : nullptr;
    if (!parent) return;
    auto* splitter = new QSplitter(Qt::Horizontal, parent);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(left->Widget());
    splitter->addWidget(right->Widget());
    splitter->setStretchFactor(1, 1);  // a change of size goes to the right gadget
    EnterGadget(new SplitterFunctions(gadget, splitter), QRect(x, y, width, height));
}

#include "ui/gadgets/CanvasGadget.h"

#include "ui/drawing/PBCanvasWidget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

class PBCanvasFunctions : public PBGadgetFunctions {
    Q_OBJECT
  public:
    PBCanvasFunctions(int gadget, PBCanvasWidget* shown)
        : PBGadgetFunctions(gadget, shown), canvas(shown) {}

    void Resized() override { canvas->FitImage(); }
    bool ReportsFocus() const override { return true; }

  private:
    PBCanvasWidget* const canvas;
};

}  // namespace

// A frame is drawn over the picture's edge, so that the picture has the size of the gadget
// and what lies in the canvas stands where it is told.
void CanvasGadget(int gadget, int x, int y, int width, int height, int flags) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* canvas = new PBCanvasWidget(parent, gadget, flags & kCanvasKeyboard);
    if (flags & kCanvasFrame) canvas->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    EnterGadget(new PBCanvasFunctions(gadget, canvas), QRect(x, y, width, height));
    if (flags & kCanvasContainer) OpenGadgetList(canvas);
}

#include "CanvasGadget.moc"

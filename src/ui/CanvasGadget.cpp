#include "ui/CanvasGadget.h"

#include "ui/GadgetTable.h"
#include "ui/PBCanvasFunctions.h"

// Drawing on a gadget of another kind is refused like drawing on none.
PBCanvasWidget* FindCanvas(int gadget) {
    auto* const functions = qobject_cast<PBCanvasFunctions*>(FindGadget(gadget));
    return functions ? functions->Canvas() : nullptr;
}

// A frame is drawn over the picture's edge, so that the picture has the size of the gadget
// and what lies in the canvas stands where it is told.
void CanvasGadget(int gadget, int x, int y, int width, int height, int flags) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* canvas = new PBCanvasWidget(parent, flags & kCanvasKeyboard);
    if (flags & kCanvasFrame) canvas->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    EnterGadget(new PBCanvasFunctions(gadget, canvas), QRect(x, y, width, height));
    if (flags & kCanvasContainer) OpenGadgetList(canvas);
}

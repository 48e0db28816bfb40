#include "ui/ContainerGadget.h"

#include "ui/GadgetTable.h"
#include "ui/PBGadgetFunctions.h"

// It raises nothing and has neither text nor state, so the common functions will do.
void ContainerGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* container = new QWidget(parent);
    EnterGadget(new PBGadgetFunctions(gadget, container), QRect(x, y, width, height));
    OpenGadgetList(container);
}

#include "ui/gadgets/ContainerGadget.h"

#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

// It raises nothing and has neither text nor state, so the common functions will do.
void ContainerGadget(int gadget, int x, int y, int width, int height) {
    QWidget* const parent = BeginGadget(gadget);
    if (!parent) return;
    auto* container = new QWidget(parent);
    EnterGadget(new PBGadgetFunctions(gadget, container), QRect(x, y, width, height));
    OpenGadgetList(container);
}

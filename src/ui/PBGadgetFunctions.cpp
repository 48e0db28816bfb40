#include "ui/PBGadgetFunctions.h"

#include <QVariant>

#include "base/Numbers.h"
#include "ui/GadgetTable.h"
#include "ui/InterfaceEvent.h"
#include "ui/NumberedWidgets.h"

PBGadgetFunctions::PBGadgetFunctions(int gadget, QWidget* widget)
    : ownNumber(gadget), ownWidget(widget) {
    widget->setProperty(kGadgetProperty, gadget);
}

void RaiseGadgetEvent(int gadget, int64_t type) {
    if (!FindGadget(gadget)) return;
    InterfaceEvent event;
    event.number = kEventGadget;
    event.object = gadget;
    event.window = GadgetWindow(gadget);
    event.type = type;
    RaiseInterfaceEvent(event);
}

// sender() is the widget or a helper of it. The gadget may be freed by what is bound to
// the event, so nothing follows the call.
void PBGadgetFunctions::LeftClicked() {
    RaiseGadgetEvent(GadgetOf(sender()), kTypeLeftClick);
}

void PBGadgetFunctions::LeftDoubleClicked() {
    RaiseGadgetEvent(GadgetOf(sender()), kTypeLeftDoubleClick);
}

void PBGadgetFunctions::ValueChanged() {
    RaiseGadgetEvent(GadgetOf(sender()), kTypeValueChanged);
}

void PBGadgetFunctions::PathChanged() {
    RaiseGadgetEvent(GadgetOf(sender()), kTypePathChanged);
}

void PBGadgetFunctions::PathChosen() {
    RaiseGadgetEvent(GadgetOf(sender()), kTypePathChosen);
}

#include "ui/gadgets/PBGadgetFunctionsInternal.h"

#include <QVariant>

#include "base/Numbers.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTable.h"

PBGadgetFunctions::PBGadgetFunctions(int gadget, QWidget* widget)
    : ownNumber(gadget), ownWidget(widget) {
    widget->setProperty(kGadgetProperty, gadget);
}

void RaiseGadgetEvent(int gadget, int64_t type) {
    const QWidget* const widget = GadgetWidget(gadget);
    if (!widget) return;
    InterfaceEvent event;
    event.number = kEventGadget;
    event.object = gadget;
    event.window = WindowOf(widget);
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

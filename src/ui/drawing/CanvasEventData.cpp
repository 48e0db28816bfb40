#include "ui/drawing/CanvasEventData.h"

#include "base/Numbers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"

namespace {

// It is also the mark by which a canvas's data is known.
void FreeCanvasData(void* data) {
    delete static_cast<CanvasEventData*>(data);
}

// An attribute that the data lacks reads 0, as one of another gadget does.
int Attribute(const CanvasEventData& data, int attribute) {
    switch (attribute) {
        case kAttributeMouseX:
            return data.x;
        case kAttributeMouseY:
            return data.y;
        case kAttributeButtons:
            return static_cast<int>(data.buttons);
        case kAttributeKey:
            return static_cast<int>(data.key);
        case kAttributeModifiers:
            return static_cast<int>(data.modifiers);
        case kAttributeWheel:
            return data.wheel;
        case kAttributeInput:
            return static_cast<int>(data.input);
        case kAttributeKeyOfText:
            return static_cast<int>(data.keyOfText);
        default:
            return 0;
    }
}

}  // namespace

void RaiseCanvasEvent(const QWidget* canvas, int64_t type, uint32_t flags,
                      const CanvasEventData& data) {
    InterfaceEvent event;
    event.number = kEventGadget;
    event.flags = flags;
    event.object = GadgetOf(canvas);
    event.window = WindowOf(canvas);
    event.type = type;
    event.data = new CanvasEventData(data);
    event.dataFree = FreeCanvasData;
    RaiseInterfaceEvent(event);
}

// Other events, drops and posted ones, carry data of other kinds.
int EventAttribute(int gadget, int attribute) {
    const InterfaceEvent& event = CurrentEvent();
    const bool ofThisCanvas =
        event.number == kEventGadget && event.object == gadget && event.dataFree == FreeCanvasData;
    return ofThisCanvas ? Attribute(*static_cast<const CanvasEventData*>(event.data), attribute)
                        : 0;
}

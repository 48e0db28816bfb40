#include "ui/PBEventFilter.h"

#include <QMouseEvent>

#include "base/Numbers.h"
#include "ui/GadgetTable.h"
#include "ui/PBGadgetFunctions.h"
#include "ui/PBQMainWindow.h"

namespace {

PBEventFilter filter;

void RaiseFocusEvent(int gadget, int64_t type) {
    const PBGadgetFunctions* functions = FindGadget(gadget);
    if (functions && functions->ReportsFocus()) RaiseGadgetEvent(gadget, type);
}

// The window gets to know of it whatever the gadget does with its mouse events. A gadget
// that passes them on makes the window raise it again, which merges.
void RaiseRightButtonUp(int gadget, const QMouseEvent& event) {
    if (event.button() == Qt::RightButton)
        RaiseWindowEvent(GadgetWindow(gadget), kEventRightButtonUp);
}

}  // namespace

PBEventFilter* GadgetEventFilter() {
    return &filter;
}

bool PBEventFilter::eventFilter(QObject* watched, QEvent* event) {
    const int gadget = GadgetOf(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
            RaiseFocusEvent(gadget, kTypeFocus);
            break;
        case QEvent::FocusOut:
            RaiseFocusEvent(gadget, kTypeLostFocus);
            break;
        case QEvent::MouseButtonRelease:
            RaiseRightButtonUp(gadget, static_cast<const QMouseEvent&>(*event));
            break;
        default:
            break;
    }
    return false;
}

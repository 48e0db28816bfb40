#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBEventFilterInternal.h"

#include <QMouseEvent>
#include <QWidget>

#include "base/Numbers.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

PBEventFilter filter;

// The gadget of a filtered widget. The part of a list that shows its rows is a widget of
// its own inside the gadget's.
int WatchedGadget(QObject* watched) {
    return GadgetAround(qobject_cast<QWidget*>(watched));
}

// Most gadgets take the focus without anybody wanting to know.
void RaiseFocusEvent(int gadget, int64_t type) {
    const PBGadgetFunctions* functions = FindGadget(gadget);
    if (functions && functions->ReportsFocus()) RaiseGadgetEvent(gadget, type);
}

// The window gets to know of it whatever the gadget does with its mouse events. A gadget
// that passes them on makes the window raise it again, which merges.
void RaiseButtonUp(int gadget, Qt::MouseButton button) {
    if (button == Qt::RightButton)
        RaiseWindowEvent(WindowOf(GadgetWidget(gadget)), kEventRightButtonUp);
}

}  // namespace

PBEventFilter* GadgetEventFilter() {
    return &filter;
}

// It sees every event of every gadget, each repaint too, so it asks for the gadget last.
bool PBEventFilter::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            RaiseFocusEvent(WatchedGadget(watched), kTypeFocus);
            break;
        case QEvent::FocusOut:
            RaiseFocusEvent(WatchedGadget(watched), kTypeLostFocus);
            break;
        case QEvent::MouseButtonRelease:
            RaiseButtonUp(WatchedGadget(watched), static_cast<QMouseEvent*>(event)->button());
            break;
        default:
            break;
    }
    return false;
}

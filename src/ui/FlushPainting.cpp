#include "ui/FlushPainting.h"

#include <QCoreApplication>
#include <QEvent>

#include "ui/drawing/Drawing.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/windows/Windows.h"

namespace {

bool flushing = false;  // a procedure that runs while painting may wait as well

}  // namespace

// The platform sends what was painted to the display server before it returns.
void FlushPainting() {
    if (flushing || !QCoreApplication::instance()) return;
    flushing = true;
    ShowNewWindows();
    PBCanvasWidget::ShowAllPending();
    // What the toolkit put off: a new layout, and the first showing of a gadget that was
    // hidden. Nothing else of its queue is delivered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    PaintAllWindows();
    flushing = false;
}

// Showing what was painted, without the event loop.
#include <QCoreApplication>

#include "ui/Drawing.h"
#include "ui/PBCanvasWidget.h"
#include "ui/WindowTable.h"

namespace {

bool flushing = false;  // a procedure that runs while painting may wait as well

}  // namespace

void FlushPainting() {
    if (flushing || !QCoreApplication::instance()) return;
    flushing = true;
    PBCanvasWidget::ShowAllPending();
    PaintAllWindows();
    flushing = false;
}

#include "ui/drawing/Drawing.h"

#include <QFontMetrics>

#include "ui/drawing/Fonts.h"
#include "ui/drawing/FontsInternal.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/drawing/PaintRecord.h"

namespace {

struct OpenDrawing {
    int canvas = -1;
    int depth = 0;  // of nested calls
    PBCanvasWidget* widget = nullptr;
    PaintRecord* record = nullptr;
    QRect changedBefore;  // what the widget was told already
};

OpenDrawing open;

}  // namespace

bool StartDrawing(int canvas) {
    if (open.depth > 0) {
        if (open.canvas != canvas) return false;
        ++open.depth;
        return true;
    }
    PBCanvasWidget* const widget = FindCanvas(canvas);
    if (!widget) return false;
    open = {canvas, 1, widget, &widget->record, widget->record.changed};
    return true;
}

// The widget is told what changed only as far as it was not told before.
void StopDrawing() {
    if (open.depth == 0 || --open.depth > 0) return;
    const QRect changed = open.record->changed;
    if (changed != open.changedBefore) open.widget->ShowSoon(changed);
    open = OpenDrawing();
}

void DrawBox(int x, int y, int width, int height, uint32_t colour) {
    if (open.record) RecordBox(open.record, x, y, width, height, ImageColour(colour));
}

void DrawXorBox(int x, int y, int width, int height, uint32_t colour) {
    if (open.record) RecordXorBox(open.record, x, y, width, height, ImageColour(colour));
}

void DrawCells(int x, int y, const CellRun& run, const CellBoxes& boxes) {
    if (open.record) RecordCells(open.record, x, y, run, boxes);
}

void MovePicture(int top, int height, int target, uint32_t background) {
    if (open.record) RecordMove(open.record, top, height, target, ImageColour(background));
}

int TextWidthOf(int font, const QString& text) {
    const QFont* numbered = NumberedFont(font);
    return numbered ? QFontMetrics(*numbered).horizontalAdvance(text) : 0;
}

int TextHeightOf(int font) {
    return MeasuresOf(font).height;
}

void ResetCanvasPicture(int canvas, int width, int height) {
    PBCanvasWidget* const widget = FindCanvas(canvas);
    if (!widget) return;
    ResetPicture(&widget->record, width, height);
    widget->ShowSoon(widget->record.changed);
}

QImage CanvasPicture(int canvas) {
    PBCanvasWidget* const widget = FindCanvas(canvas);
    return widget ? PictureOf(&widget->record) : QImage();
}

#include "ui/Drawing.h"

#include <QFontMetrics>

#include "ui/CanvasAccess.h"
#include "ui/CanvasImage.h"
#include "ui/FontTable.h"
#include "ui/PaintRecord.h"

namespace {

constexpr int kNoCanvas = -1;

struct OpenDrawing {
    int canvas = kNoCanvas;
    int depth = 0;  // of nested calls
    CanvasImage* image = nullptr;
    PaintRecord* record = nullptr;
    QRect changedBefore;  // what the canvas was told already
};

OpenDrawing open;

// The canvas that was drawn on last, so that its image need not be looked up for each run.
struct LatestCanvas {
    int canvas = kNoCanvas;
    int changes = 0;  // CanvasImageChanges at that time
    CanvasImage* image = nullptr;
};

LatestCanvas latest;

CanvasImage* ImageOf(int canvas) {
    if (latest.canvas != canvas || latest.changes != CanvasImageChanges()) {
        latest = {canvas, CanvasImageChanges(), CanvasImageOf(canvas)};
    }
    return latest.image;
}

}  // namespace

bool StartDrawing(int canvas) {
    if (open.depth > 0) {
        if (open.canvas != canvas) return false;
        ++open.depth;
        return true;
    }
    CanvasImage* image = ImageOf(canvas);
    if (!image) return false;
    open = {canvas, 1, image, &image->Record(), image->Changed()};
    return true;
}

// The canvas is told what changed only as far as it was not told before.
void StopDrawing() {
    if (open.depth == 0 || --open.depth > 0) return;
    const QRect changed = open.image->Changed();
    if (changed != open.changedBefore) CanvasChanged(open.canvas, changed);
    open = OpenDrawing();
}

void DrawBox(int x, int y, int width, int height, uint32_t colour) {
    if (open.record) RecordBox(open.record, x, y, width, height, ImageColour(colour));
}

void DrawXorBox(int x, int y, int width, int height, uint32_t colour) {
    if (open.record) RecordXorBox(open.record, x, y, width, height, ImageColour(colour));
}

KeptCells DrawCells(int x, int y, const CellRun* runs, int count, const CellBoxes& boxes) {
    return open.record ? RecordCells(open.record, x, y, runs, count, boxes) : KeptCells();
}

bool DrawCellsAgain(int y, const KeptCells& kept) {
    return open.record && RecordKeptCells(open.record, y, kept);
}

void MovePicture(int top, int height, int target, uint32_t background) {
    if (open.record) RecordMove(open.record, top, height, target, ImageColour(background));
}

int TextWidthOf(int font, const QString& text) {
    const QFont* numbered = NumberedFont(font);
    return numbered ? QFontMetrics(*numbered).horizontalAdvance(text) : 0;
}

int TextHeightOf(int font) {
    const QFont* numbered = NumberedFont(font);
    return numbered ? QFontMetrics(*numbered).height() : 0;
}

void ResetCanvasPicture(int canvas, int width, int height) {
    CanvasImage* image = CanvasImageOf(canvas);
    if (!image) return;
    image->Reset(width, height);
    CanvasChanged(canvas, image->Changed());
}

QImage CanvasPicture(int canvas) {
    CanvasImage* image = CanvasImageOf(canvas);
    return image ? image->Picture() : QImage();
}

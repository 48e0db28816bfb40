#include "ui/CanvasImage.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "ui/PaintRecord.h"

namespace {

std::set<PaintRecord*> allRecords;
int changes = 0;  // of allRecords

QSize HeldSize(int width, int height) {
    const int heldWidth = std::clamp(width, 1, kLongestPictureSide);
    const int tallest = std::min(kLongestPictureSide, kMostPicturePixels / heldWidth);
    return QSize(heldWidth, std::clamp(height, 1, tallest));
}

void SetSize(PaintRecord* record, QSize size) {
    record->width = size.width();
    record->height = size.height();
}

}  // namespace

CanvasImage::CanvasImage(int width, int height) : record(std::make_unique<PaintRecord>()) {
    allRecords.insert(record.get());
    ++changes;
    Reset(width, height);
}

CanvasImage::~CanvasImage() {
    allRecords.erase(record.get());
    ++changes;
}

void CanvasImage::Resize(int width, int height) {
    const QSize size = HeldSize(width, height);
    const QSize sizeBefore(record->width, record->height);
    if (size == sizeBefore) return;
    if (record->uniform && record->operations.empty()) {
        const QRgb colour = record->uniformColour;
        Reset(width, height);
        return RecordBox(record.get(), 0, 0, sizeBefore.width(), sizeBefore.height(), colour);
    }
    const QImage before = Picture();
    Reset(width, height);
    MakePixels(record.get());
    const size_t bytes = sizeof(QRgb) * std::min(before.width(), size.width());
    for (int row = 0; row < std::min(before.height(), size.height()); ++row) {
        memcpy(record->picture.scanLine(row), before.constScanLine(row), bytes);
    }
}

void CanvasImage::Reset(int width, int height) {
    SetSize(record.get(), HeldSize(width, height));
    record->changed = PaintArea();
    MakeUniform(record.get(), ImageColour(0xFFFFFF));
}

int CanvasImage::Width() const {
    return record->width;
}

int CanvasImage::Height() const {
    return record->height;
}

const QImage& CanvasImage::Picture() {
    MakePixels(record.get());
    record->changed = PaintArea();
    return record->picture;
}

QRect CanvasImage::Changed() const {
    const PaintArea& area = record->changed;
    return QRect(area.left, area.top, area.right - area.left, area.bottom - area.top);
}

int CanvasImageChanges() {
    return changes;
}

void MakeAllPictures() {
    for (PaintRecord* record : allRecords) MakePixels(record);
}

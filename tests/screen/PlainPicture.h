// The drawing calls of ui/Drawing.h carried out at once by the toolkit, one after the
// other, with nothing kept, merged or left out. What the recorded drawing must equal.
#pragma once

#include <QImage>
#include <QString>
#include <cstdint>

#include "ui/Drawing.h"

class PlainPicture {
  public:
    PlainPicture(int width, int height);
    void Resize(int width, int height);
    void Box(int x, int y, int width, int height, uint32_t colour);
    void XorBox(int x, int y, int width, int height, uint32_t colour);
    void Cells(int x, int y, const CellRun* runs, int count, const CellBoxes& boxes);
    void Move(int top, int height, int target, uint32_t background);
    const QImage& Image() const { return image; }

  private:
    QImage image;
};

// Fails the running test, with the first pixel that differs, unless the pictures are equal.
void ExpectSamePicture(const QImage& found, const QImage& expected, const QString& what);

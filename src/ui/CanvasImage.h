// The image behind a canvas. Drawing calls are recorded and become pixels when somebody
// looks. Interface thread.
#pragma once

#include <QImage>
#include <memory>

struct PaintRecord;

class CanvasImage {
  public:
    CanvasImage(int width, int height);
    ~CanvasImage();

    // Keeps the overlapping part; what is new is white.
    void Resize(int width, int height);
    int Width() const;
    int Height() const;
    // The picture with all that was drawn so far: makes the pixels that are missing.
    const QImage& Picture();

  private:
    std::unique_ptr<PaintRecord> record;
};

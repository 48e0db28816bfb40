// The image behind a canvas. Drawing calls are recorded and become pixels when somebody
// looks. Interface thread.
#pragma once

#include <QImage>
#include <QRect>
#include <memory>

struct PaintRecord;

// A larger picture than this is cut at its lower end.
constexpr int kLongestPictureSide = 16384;  // pixels
constexpr int kMostPicturePixels = 32 * 1024 * 1024;

class CanvasImage {
  public:
    CanvasImage(int width, int height);
    ~CanvasImage();

    // Keeps the overlapping part; what is new is white.
    void Resize(int width, int height);
    // Takes the size and drops what the picture showed: it is white then.
    void Reset(int width, int height);
    int Width() const;
    int Height() const;
    // The picture with all that was drawn so far: makes the pixels that are missing.
    const QImage& Picture();
    // The part that changed since Picture was called last.
    QRect Changed() const;
    // Where the drawing calls are kept.
    PaintRecord& Record() { return *record; }

  private:
    std::unique_ptr<PaintRecord> record;
};

// How often an image was made or destroyed; while it stays the same, so do all pointers.
int CanvasImageChanges();

// Makes the missing pixels of every picture, for a change that recorded calls must not see.
void MakeAllPictures();

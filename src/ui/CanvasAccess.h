// The seam between a canvas gadget and what draws on it. Interface thread.
#pragma once

#include <QRect>

class CanvasImage;

// The picture of a canvas gadget; null when there is no canvas of that number. It lives
// as long as the gadget does.
CanvasImage* CanvasImageOf(int gadget);

// Has that part of the canvas's widget shown anew: soon, or at the next FlushPainting.
// The area is in canvas pixels and is cut to the canvas. Nothing for an unknown number.
void CanvasChanged(int gadget, const QRect& area);

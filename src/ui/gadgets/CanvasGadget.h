// A canvas: a frame that shows an image which the program draws into. Mouse, wheel and
// key events come as event 3 with the canvas types of base/Numbers.h and carry the
// attributes that EventAttribute reads. Interface thread.
#pragma once

#include <QString>

constexpr int kCanvasFrame = 1;
constexpr int kCanvasKeyboard = 4;
constexpr int kCanvasContainer = 32;  // opens a gadget list, as a container does

void CanvasGadget(int gadget, int x, int y, int width, int height, int flags);

// From recorded operations to pixels: the picture is moved once, by the sum of all moves,
// and what can be seen of the operations is painted in order. Interface
// thread.
#pragma once

struct PaintRecord;

// Turns all operations into pixels.
void MakePixels(PaintRecord* record);

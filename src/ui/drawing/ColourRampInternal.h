// The colours between a background and a foreground. Interface thread.
#pragma once

#include <QColor>

// 256 colours, one for each coverage: 0 gives the background and 255 the ink. Valid until
// the next call.
const QRgb* RampOf(QRgb ink, QRgb background);

// One of them.
QRgb BlendColours(QRgb ink, QRgb background, int coverage);

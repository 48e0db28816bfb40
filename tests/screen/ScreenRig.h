// A main window with what the terminal needs: the two canvases, the scroll bar, the
// toolbar rows and the size text. For tests, benchmarks and fuzz targets.
#pragma once

#include <QImage>
#include <QString>
#include <string>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"
#include "ui/gadgets/Gadgets.h"

// Opens the window and sets the terminal up from the settings as they stand.
void OpenScreenRig();

// Bytes, one character each, through the parser.
void Feed(const std::string& bytes);

// The characters of a screen row, 1 to rows, up to its length; "." for an empty cell.
std::string RowText(int row);

// The terminal canvas's picture, all pixels made.
QImage TerminalPicture();

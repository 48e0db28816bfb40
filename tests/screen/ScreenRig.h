// A main window with what the terminal needs: the two canvases, the scroll bar, the
// toolbar rows and the size text. For tests, benchmarks and fuzz targets.
#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <string>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/VtParser.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/drawing/Drawing.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"
#include "ui/windows/Windows.h"

// Opens the window and sets the terminal up from the settings, which take the size.
void OpenScreenRig(int cols = 101, int rows = 50);

// Bytes, one character each, through the parser.
void Feed(const std::string& bytes);

// The characters of a screen row, 1 to rows, up to its length; "." for an empty cell.
std::string RowText(int row);
// The shown rows without empty ones at the end: "AB.|CD.".
std::string ScreenText();

QRect PlaceOf(int gadget);

// The terminal canvas's picture, all pixels made.
QImage TerminalPicture();

// A glyph on its box, as the toolkit has it.
void DrawGlyph(QPainter* painter, int x, int y, const QFont& font, QColor ink, QColor paper,
               QChar c);

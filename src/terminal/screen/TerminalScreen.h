// The memory behind the terminal: an ordered list of lines of cells, the cursor, the
// colours in force and the scroll position. The screen shows `rows` consecutive lines of
// the list; the lines above them are the scrollback. The parser and the monitor views
// write into it, the painters read it. Columns and rows count from 1. Interface thread,
// but for TerminalPrintLine.
#pragma once

#include <QString>
#include <cstdint>

constexpr int kLineCells = 257;              // slots 0 to 256; slot 0 is never used
constexpr int kLastColumn = kLineCells - 1;  // no column beyond is ever written
constexpr int kMostRows = 256;               // bound of any size asked of the terminal
constexpr int kMostScrollBack = 100000;      // bound of the scrollback setting, in lines

// Attribute bits of a cell. Bold, third font and inverse are assigned, never combined.
constexpr int kAttributeBold = 1;
constexpr int kAttributeThirdFont = 2;
constexpr int kAttributeInverse = 4;
constexpr int kAttributeDim = 8;      // painted, but set by nothing
constexpr int kAttributeHidden = 16;  // painted, but set by nothing

// One character position. Colours are as set, never the swapped pair.
struct TerminalCell {
    char16_t ch = 0;  // 0 means empty
    int16_t attr = 0;
    uint32_t bg = 0;  // BBGGRR in the low 24 bits
    uint32_t fg = 0;
};

struct TerminalLine {
    int length = 0;  // highest cursor column that a write on this line reached, not a count
    int used = 0;    // highest slot written since the line was new
    TerminalCell cells[kLineCells];
};

struct TerminalScreen {
    int cols = 101;                        // width in characters
    int rows = 50;                         // height in characters
    int cursorX = 1;                       // 1 to cols
    int cursorY = 1;                       // 1 to rows
    int topLine = 0;                       // row r of the screen is list element topLine + r
    int topLimit = 0;                      // highest topLine for which lines exist
    int scrollBack = 1024;                 // greatest value of topLine
    int maxLineLength = 256;               // columns that text extraction reads of a line
    int textAttr = 0;                      // attribute of new cells
    uint32_t curFg = 0xFFFFFF, curBg = 0;  // colours of new cells
    uint32_t pendFg = 0, pendBg = 0;       // the parser's colours, see VtParser.h
    uint32_t defaultFg = 0xFFFFFF, defaultBg = 0;  // by the scheme
    uint32_t dimColour = 0x999999;
    bool cursorVisible = true;
};

extern const TerminalScreen& terminalScreen;

// The line of list element `element`, counted from 0; null outside the list.
const TerminalLine* TerminalLineAt(int element);
// Elements in the line list: rows + 1 + topLimit.
int TerminalLineCount();

// Changes of single fields. Each holds its values inside their range.
void MoveTerminalCursor(int x, int y);  // x 1 to kLastColumn, y 1 to rows
void SetTextAttribute(int attribute);
void SetCurrentColours(uint32_t foreground, uint32_t background);
void SetPendingColours(uint32_t foreground, uint32_t background);
void UseDefaultColours();  // as the current ones
void UseSchemeColours();   // as the default and the current ones, by the setting
void ResetDimColour();
void SetCursorVisible(bool visible);
void SetScreenSize(int cols, int rows);  // the line list stays; ClearTerminal must follow
void SetScrollBackLimits(int scrollBack, int maxLineLength);

// Empties the screen and all scrollback.
void ClearTerminal(int canvas);
// Writes text at the cursor with the current attribute and colours. No wrap: at the
// right margin each further character replaces the last cell.
void TerminalPutText(const QString& text);
void TerminalPutText(const char16_t* text, int count);
// Moves the view forward n lines, creating and trimming lines.
void TerminalScrollUp(int n);
// Moves the view back n lines.
void TerminalScrollDown(int n);
// Tells the user a line: runs it through TerminalFeed and moves to the start of the next
// line. From another thread the line is handed to the interface thread, which prints it
// in order with that thread's posted events.
void TerminalPrintLine(const QString& text);
// Prints the oldest handed line: the answer to one event kEventPrintLine.
void PrintHandedLines();
// Prints all handed lines now; their events then find nothing. For who waits for the
// thread that handed them and so keeps the loop from its events.
void PrintAllHandedLines();
// Lines that may wait at a time; of a thread that hands over more the rest is dropped,
// since it must never wait for the interface thread.
constexpr int kMostHandedLines = 4096;

// While a feed is under way, what only the window shows is held back: the scroll bar's
// position and the window's layout. They follow at its end.
void SetFeedUnderWay(bool underWay);
bool FeedUnderWay();

#include "terminal/screen/TerminalScreen.h"

#include <algorithm>

#include "base/Numbers.h"
#include "terminal/screen/CellPainting.h"
#include "terminal/screen/LineList.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"
#include "ui/gadgets/Gadgets.h"

namespace {

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kBlack = 0;
constexpr uint32_t kDimColour = 0x999999;

TerminalScreen screen;
bool feedUnderWay = false;
int scrollPosition = 0;  // of the last scroll: a cleared screen keeps it
bool scrollBarBehind = false;

void ShowScrollPosition() {
    scrollBarBehind = feedUnderWay;
    if (!feedUnderWay) SetGadgetState(kTerminalScrollBar, scrollPosition);
}

void TakeScrollPosition() {
    scrollPosition = screen.topLine;
    ShowScrollPosition();
}

// Where a text of `count` units goes from the cursor on: `inRow` of them side by side, and
// the rest one upon the other in the last column. A cursor beyond the last column, which
// the hex monitor makes, writes one cell there first.
struct WrittenPlace {
    WrittenPlace(int column, int count, int cols)
        : first(column),
          inRow(std::min(count, std::max(1, cols - column + 1))),
          stacked(count - inRow) {}
    int first, inRow, stacked;
};

void StoreCells(TerminalLine* line, const WrittenPlace& place, const char16_t* text) {
    TerminalCell cell;
    cell.attr = static_cast<int16_t>(screen.textAttr);
    cell.fg = screen.curFg;
    cell.bg = screen.curBg;
    TerminalCell* out = line->cells + place.first;
    for (int i = 0; i < place.inRow; ++i) {
        cell.ch = text[i];
        out[i] = cell;
    }
    line->used = std::max(line->used, place.first + place.inRow - 1);
    if (place.stacked > 0) {
        cell.ch = text[place.inRow + place.stacked - 1];
        line->cells[screen.cols] = cell;
        line->used = std::max(line->used, screen.cols);
    }
}

void DrawWritten(const WrittenPlace& place, const char16_t* text) {
    CellRun run;
    run.text = text;
    run.count = place.inRow;
    SetLook(&run.look, screen.textAttr, screen.curFg, screen.curBg);
    DrawWrittenCells(place.first, screen.cursorY, run, false);
    if (place.stacked <= 0) return;
    run.text = text + place.inRow;
    run.count = place.stacked;
    DrawWrittenCells(screen.cols, screen.cursorY, run, true);
}

// Lines may be asked to scroll by any number; more than there can be makes no difference.
int HeldLines(int n) {
    return std::clamp(n, 0, kMostScrollBack + kMostRows);
}

}  // namespace

const TerminalScreen& terminalScreen = screen;

const TerminalLine* TerminalLineAt(int element) {
    return LineAt(element);
}

int TerminalLineCount() {
    return LineCount();
}

void MoveTerminalCursor(int x, int y) {
    screen.cursorX = std::clamp(x, 1, kLastColumn);
    screen.cursorY = std::clamp(y, 1, screen.rows);
}

void SetTextAttribute(int attribute) {
    screen.textAttr = static_cast<int16_t>(attribute);
}

void SetCurrentColours(uint32_t foreground, uint32_t background) {
    screen.curFg = foreground;
    screen.curBg = background;
}

void SetPendingColours(uint32_t foreground, uint32_t background) {
    screen.pendFg = foreground;
    screen.pendBg = background;
}

void UseDefaultColours() {
    SetCurrentColours(screen.defaultFg, screen.defaultBg);
}

void UseSchemeColours() {
    const bool dark = terminalSettings.darkBackground != 0;
    screen.defaultFg = dark ? kWhite : kBlack;
    screen.defaultBg = dark ? kBlack : kWhite;
    UseDefaultColours();
}

void ResetDimColour() {
    screen.dimColour = kDimColour;
}

void SetCursorVisible(bool visible) {
    screen.cursorVisible = visible;
}

void SetScreenSize(int cols, int rows) {
    screen.cols = std::clamp(cols, 1, kLastColumn);
    screen.rows = std::clamp(rows, 1, kMostRows);
}

void SetScrollBackLimits(int scrollBack, int maxLineLength) {
    screen.scrollBack = std::clamp(scrollBack, 0, kMostScrollBack);
    screen.maxLineLength = maxLineLength;
}

void ClearTerminal(int canvas) {
    if (StartDrawing(canvas)) {
        DrawBox(0, 0, terminalSettings.canvasWidth, terminalSettings.canvasHeight, screen.curBg);
        StopDrawing();
    }
    screen.cursorX = screen.cursorY = 1;
    screen.topLine = screen.topLimit = 0;
    UseSchemeColours();
    ResetLines(screen.rows + 1);
}

void TerminalPutText(const QString& text) {
    TerminalPutText(reinterpret_cast<const char16_t*>(text.utf16()), text.size());
}

void TerminalPutText(const char16_t* text, int count) {
    TerminalLine* line = LineAt(screen.topLine + screen.cursorY);
    if (count <= 0 || !line || !StartDrawing(kTerminalCanvas)) return;
    const WrittenPlace place(screen.cursorX, count, screen.cols);
    StoreCells(line, place, text);
    DrawWritten(place, text);
    screen.cursorX =
        place.stacked > 0 ? screen.cols : std::min(place.first + place.inRow, screen.cols);
    // The length is where the cursor went, one past the last character as a rule.
    line->length = std::max(line->length, screen.cursorX);
    StopDrawing();
}

void TerminalScrollUp(int n) {
    n = HeldLines(n);
    screen.topLine += n;
    if (screen.topLine > screen.topLimit) {
        // At the limit each new line costs the oldest one.
        AppendLines(screen.topLine - screen.topLimit, screen.rows + 1 + screen.scrollBack);
        screen.topLimit = std::min(screen.scrollBack, screen.topLine);
    }
    screen.topLine = std::min(screen.topLine, screen.scrollBack);
    TakeScrollPosition();
    TerminalScrollView(n);
}

void TerminalScrollDown(int n) {
    n = HeldLines(n);
    screen.topLine = std::max(screen.topLine - n, 0);
    TakeScrollPosition();
    // With the number asked for, even where the view is at the top already.
    TerminalScrollView(-n);
}

void SetFeedUnderWay(bool underWay) {
    feedUnderWay = underWay;
    if (!underWay && scrollBarBehind) ShowScrollPosition();
}

bool FeedUnderWay() {
    return feedUnderWay;
}

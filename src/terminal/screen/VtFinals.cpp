#include "terminal/screen/VtFinals.h"

#include <QString>
#include <algorithm>
#include <limits>

#include "base/Numbers.h"
#include "terminal/screen/EraseLine.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtColours.h"
#include "terminal/screen/VtSequence.h"
#include "ui/events/EventQueue.h"

namespace {

QString replyText;  // waits to go to the device

int64_t Parameter(const VtSequence& sequence, int slot) {
    return static_cast<int64_t>(sequence.slots[slot]);
}

int Held(int64_t value, int least, int most) {
    return static_cast<int>(std::clamp<int64_t>(value, least, most));
}

int AsInt(int64_t value) {
    return Held(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

// A coordinate and a parameter added, with the wrap of 64 bits, and held on the screen.
int Moved(int from, uint64_t by, int most) {
    return Held(static_cast<int64_t>(static_cast<uint64_t>(from) + by), 1, most);
}

void PlaceCursor(VtSequence* sequence) {
    MoveTerminalCursor(Held(Parameter(*sequence, 2), 1, terminalScreen.cols),
                       Held(Parameter(*sequence, 1), 1, terminalScreen.rows));
    // The colours in force stay; the next SGR of any kind brings these.
    SetPendingColours(terminalScreen.defaultFg, terminalScreen.defaultBg);
}

// An absent parameter counts as 0 and moves by nothing.
void CursorUp(VtSequence* sequence) {
    MoveTerminalCursor(terminalScreen.cursorX,
                       Moved(terminalScreen.cursorY, 0 - sequence->slots[1], terminalScreen.rows));
}

void CursorDown(VtSequence* sequence) {
    MoveTerminalCursor(terminalScreen.cursorX,
                       Moved(terminalScreen.cursorY, sequence->slots[1], terminalScreen.rows));
}

void CursorForward(VtSequence* sequence) {
    MoveTerminalCursor(Moved(terminalScreen.cursorX, sequence->slots[1], terminalScreen.cols),
                       terminalScreen.cursorY);
}

void CursorBackward(VtSequence* sequence) {
    MoveTerminalCursor(Moved(terminalScreen.cursorX, 0 - sequence->slots[1], terminalScreen.cols),
                       terminalScreen.cursorY);
}

void EraseRow(int row, int mode) {
    MoveTerminalCursor(terminalScreen.cursorX, row);
    TerminalEraseLine(mode);
}

void EraseRows(int first, int last) {
    for (int row = first; row <= last; ++row) EraseRow(row, 2);
}

void EraseDisplay(VtSequence* sequence) {
    const int row = terminalScreen.cursorY;
    switch (Parameter(*sequence, 1)) {
        case 0:
            EraseRows(row + 1, terminalScreen.rows);
            EraseRow(row, 0);
            break;
        case 1:
            // Of the rows above the cursor only the first is erased; that is meant.
            if (row > 1) EraseRow(1, 2);
            EraseRow(row, 1);
            break;
        case 2:
            EraseRows(1, terminalScreen.rows);
            break;
        default:
            break;
    }
    MoveTerminalCursor(terminalScreen.cursorX, row);
}

void EraseInLine(VtSequence* sequence) {
    TerminalEraseLine(AsInt(Parameter(*sequence, 1)));
    sequence->slots[1] = 0;
}

// The event tells the loop to send; a second request before that replaces the reply, and
// the event that is under way serves it.
void ReportStatus(VtSequence* sequence) {
    constexpr int kCursorReport = 6;
    if (Parameter(*sequence, 1) != kCursorReport) return;
    const bool underWay = !replyText.isEmpty();
    replyText = QString("\x1b[%1;%2R").arg(terminalScreen.cursorY).arg(terminalScreen.cursorX);
    if (!underWay) PostInterfaceEvent(kEventTerminalReply, kMainWindow, kNone, 0);
}

// Whatever the first parameter asks for, the others are taken as a size.
void ResizeFromDevice(VtSequence* sequence) {
    if (!terminalSettings.allowResize) return;
    SetTerminalSize(AsInt(Parameter(*sequence, 3)), AsInt(Parameter(*sequence, 2)));
    ApplyTerminalSize();
}

// Deletes no lines: only the parameters are cleared.
void ClearTwo(VtSequence* sequence) {
    ClearTwoParameters(sequence);
}

struct FinalRow {
    char16_t final;
    void (*run)(VtSequence* sequence);
};

// clang-format off
constexpr FinalRow kFinals[] = {
    // final  what it does
    {'A',     CursorUp},
    {'B',     CursorDown},
    {'C',     CursorForward},
    {'D',     CursorBackward},
    {'H',     PlaceCursor},
    {'J',     EraseDisplay},
    {'K',     EraseInLine},
    {'M',     ClearTwo},
    {'f',     PlaceCursor},
    {'m',     SelectGraphics},
    {'n',     ReportStatus},
    {'t',     ResizeFromDevice},
};
// clang-format on

constexpr int kMouseClicks = 1000;
constexpr int kMousePresses = 9;
constexpr int kCursorShown = 25;

}  // namespace

void RunFinal(VtSequence* sequence, char16_t final) {
    for (const FinalRow& row : kFinals) {
        if (row.final == final) return row.run(sequence);
    }
}

// Reads the working slot: with no digit in this feed that is slot 0, which is 0, or the
// count of parameters.
void RunPrivateFinal(VtSequence* sequence, bool set) {
    switch (Parameter(*sequence, sequence->working)) {
        case kMouseClicks:
        case kMousePresses:
            SetMouseMode(set ? terminalSettings.xtermMouse : 0);
            break;
        case kCursorShown:
            SetCursorVisible(set);
            break;
        default:
            break;
    }
    ClearTwoParameters(sequence);
}

QString TakeReplyText() {
    const QString reply = replyText;
    replyText.clear();
    return reply;
}

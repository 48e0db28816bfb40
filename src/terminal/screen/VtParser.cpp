// The states of the interpreter and the run of printable text. What the finals of a
// control sequence do is in VtFinals.cpp.
#include "terminal/screen/VtParser.h"

#include <algorithm>
#include <vector>

#include "base/LineEnding.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/VtSequence.h"

namespace {

constexpr char16_t kBackSpace = 8;
constexpr char16_t kTab = 9;
constexpr char16_t kLineFeed = 10;
constexpr char16_t kCarriageReturn = 13;
constexpr char16_t kEscape = 27;
constexpr char16_t kDelete = 127;

// Printable text is stored and painted in runs. A longer one is stored in pieces.
constexpr size_t kLongestRun = 65536;

enum VtState { kGround, kAfterEscape, kInSequence, kInPrivateSequence, kStates };

struct VtParser {
    VtState state = kGround;
    VtSequence sequence;
    std::vector<char16_t> run;  // not yet stored; empty between calls
};

VtParser parser;

void FlushRun() {
    if (parser.run.empty()) return;
    TerminalPutText(parser.run.data(), static_cast<int>(parser.run.size()));
    parser.run.clear();
}

void AppendToRun(const char16_t* text, size_t count) {
    while (count > 0) {
        if (parser.run.size() >= kLongestRun) FlushRun();
        const size_t piece = std::min(count, kLongestRun - parser.run.size());
        parser.run.insert(parser.run.end(), text, text + piece);
        text += piece;
        count -= piece;
    }
}

void PutBlank() {
    const char16_t blank = ' ';
    TerminalPutText(&blank, 1);
}

void CursorBack() {
    MoveTerminalCursor(terminalScreen.cursorX - 1, terminalScreen.cursorY);
}

// In a run its last character goes and the screen is left alone; otherwise the cell behind
// the cursor is blanked.
void BackSpace() {
    if (!parser.run.empty()) return parser.run.pop_back();
    CursorBack();
    PutBlank();
    CursorBack();
}

const std::vector<char16_t> kBlanks(kLastColumn, ' ');

// Not a tab stop in the usual sense: as many blanks as the column is beyond the last stop.
// More than a line holds make no difference.
void Tab() {
    if (terminalSettings.tabStops == 0) return;
    const int64_t column = terminalScreen.cursorX + static_cast<int64_t>(parser.run.size());
    const int64_t blanks = std::min<int64_t>(column % terminalSettings.tabStops, kLastColumn);
    AppendToRun(kBlanks.data(), static_cast<size_t>(blanks));
}

void Delete() {
    FlushRun();
    PutBlank();
}

// A line feed is a carriage return as well.
void LineFeed() {
    FlushRun();
    if (terminalScreen.cursorY < terminalScreen.rows) {
        MoveTerminalCursor(1, terminalScreen.cursorY + 1);
    } else {
        TerminalScrollUp(1);
        MoveTerminalCursor(1, terminalScreen.cursorY);
    }
}

void Ignore() {}

void StartEscape() {
    ClearParameters(&parser.sequence);
    parser.state = kAfterEscape;
}

// The units that ground state does not take as text.
struct ControlRow {
    char16_t unit;
    void (*act)();
};

// clang-format off
constexpr ControlRow kControls[] = {
    // unit           what it does
    {kBackSpace,      BackSpace},
    {kTab,            Tab},
    {kLineFeed,       LineFeed},
    {kCarriageReturn, Ignore},
    {kEscape,         StartEscape},
    {kDelete,         Delete},
};
// clang-format on

// A bit for each control below the blank.
constexpr uint32_t LowControls() {
    uint32_t bits = 0;
    for (const ControlRow& row : kControls) bits |= row.unit < ' ' ? 1U << row.unit : 0;
    return bits;
}

constexpr uint32_t kLowControls = LowControls();

bool IsText(char16_t unit) {
    return unit >= ' ' ? unit != kDelete : !(kLowControls >> unit & 1);
}

void GroundUnit(char16_t unit) {
    for (const ControlRow& row : kControls) {
        if (row.unit == unit) return row.act();
    }
    AppendToRun(&unit, 1);
}

// Any other unit leaves the state as it is: all that follows is swallowed until one of
// these comes. That is meant, for ESC 7 and ESC 8 too.
void AfterEscapeUnit(char16_t unit) {
    FlushRun();
    if (unit == kEscape) {
        StartEscape();
    } else if (unit == '[') {
        parser.state = kInSequence;
        parser.sequence.slots[kCountSlot] = 1;
    } else if (unit == 'D') {
        parser.state = kGround;
        TerminalScrollUp(1);
    } else if (unit == 'M') {
        parser.state = kGround;
        TerminalScrollDown(1);
    }
}

bool IsDigit(char16_t unit) {
    return unit >= '0' && unit <= '9';
}

void SequenceUnit(char16_t unit) {
    if (IsDigit(unit)) {
        TakeDigit(&parser.sequence, unit);
    } else if (unit == ';') {
        NextParameter(&parser.sequence);
    } else if (unit == kEscape) {
        StartEscape();
    } else if (unit == '?') {
        parser.state = kInPrivateSequence;  // with the parameters collected so far
    } else {
        parser.state = kGround;
        RunFinal(&parser.sequence, unit);
    }
}

void StartEscapeFromPrivate() {
    ClearTwoParameters(&parser.sequence);
    parser.state = kAfterEscape;
}

// A ";" is not taken here, so the digits on both sides of it make one number.
void PrivateUnit(char16_t unit) {
    if (IsDigit(unit)) {
        TakeDigit(&parser.sequence, unit);
    } else if (unit == kEscape) {
        StartEscapeFromPrivate();
    } else if (unit == 'h' || unit == 'l') {
        parser.state = kGround;
        RunPrivateFinal(&parser.sequence, unit == 'h');
    }
}

constexpr void (*kUnitOfState[kStates])(char16_t) = {GroundUnit, AfterEscapeUnit, SequenceUnit,
                                                     PrivateUnit};

// How received line ends are read. The text is not copied for it: a unit that does not
// reach the parser is left out on the way.
enum class LineEnds { kAsTheyCome, kCrLf, kCr, kLf };

LineEnds ReceivedLineEnds() {
    if (lineEnding.name == "CRLF") return LineEnds::kCrLf;
    if (lineEnding.name == "CR") return LineEnds::kCr;
    if (lineEnding.name == "LF") return LineEnds::kLf;
    return LineEnds::kAsTheyCome;
}

struct FedText {
    const char16_t* next;
    const char16_t* end;
    LineEnds lineEnds;
};

// Gives the parser what `unit`, taken from the text already, stands for.
void GiveUnit(const FedText& text, char16_t unit) {
    if (unit == kCarriageReturn) {
        if (text.lineEnds == LineEnds::kLf) return;
        const bool paired = text.next < text.end && *text.next == kLineFeed;
        if (text.lineEnds == LineEnds::kCrLf && paired) return;
        if (text.lineEnds == LineEnds::kCr) unit = kLineFeed;
    } else if (unit == kLineFeed && text.lineEnds == LineEnds::kCr) {
        return;
    }
    kUnitOfState[parser.state](unit);
}

void TakeText(FedText* text) {
    const char16_t* end = text->next;
    while (end < text->end && IsText(*end)) ++end;
    AppendToRun(text->next, end - text->next);
    text->next = end;
}

void RunParser(FedText text) {
    parser.sequence.working = 0;
    while (text.next < text.end) {
        if (parser.state == kGround) TakeText(&text);
        if (text.next < text.end) GiveUnit(text, *text.next++);
    }
    FlushRun();
}

}  // namespace

void TerminalFeed(const QString& text) {
    CaptureText(text);
    if (text.isEmpty()) return;
    const char16_t* units = reinterpret_cast<const char16_t*>(text.utf16());
    SetFeedUnderWay(true);
    RunParser({units, units + text.size(), ReceivedLineEnds()});
    SetFeedUnderWay(false);
    FinishResize();
}

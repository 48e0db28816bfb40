#include "simulator/OptionCommands.h"

#include "simulator/Board.h"

namespace simulator {

// One row for each option. Most are only kept and listed: they change nothing that a console
// would notice.

namespace {

// The rest of the statement as it stands, in upper case.
std::string TakeRest(Board& board) {
    PeekChar(board);
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    const size_t end = StatementEnd(line, at);
    const std::string rest = UpperText(TrimBlanks(std::string_view(line).substr(at, end - at)));
    at = end;
    return rest.substr(0, kMaximumOptionText);
}

// The sign-on's first line stands above the list, with its CR in front.
void ListOptions(Board& board) {
    Put(board, board.facts.signOn);
    NewLine(board);
    for (const auto& [name, value] : board.options.values) {
        Put(board, "OPTION " + name + " " + value + "\r\n");
    }
}

// The PIN is kept for the next start and isn't listed. Who sets it has given it.
void SetPin(Board& board) {
    const int pin = TakeInteger(board, 0, 99999999);
    if (board.basic.failed) return;
    if (board.facts.prompt.pinDelayMs < 0) {
        Fail(board, "Syntax");
        return;
    }
    board.prompt.pin = pin;
    board.prompt.unlocked = true;
}

// The terminal is asked to take the size on, and pages follow it.
void SetDisplay(Board& board) {
    const int rows = TakeInteger(board, 5, 100);
    const int columns = TakeChar(board, ',') ? TakeInteger(board, 37, 240) : board.width;
    if (board.basic.failed) return;
    if (board.facts.lcdConsole) {
        Fail(board, "Cannot change LCD console");
        return;
    }
    board.height = rows;
    board.width = columns;
    board.options.values["DISPLAY"] = BoardFormat("%d, %d", rows, columns);
    PutRaw(board, BoardFormat("\x1b[8;%d;%dt", rows, columns));
}

void SetExplicit(Board& board) {
    board.basic.explicitNames = true;
}

// Of a program; the arrays here begin at 0 and numbers are floats anyway.
void SetBase(Board& board) {
    TakeInteger(board, 0, 0);
}
void SetDefault(Board& board) {
    if (TakeRest(board) != "FLOAT") Fail(board, "Syntax");
}

struct OptionRow {
    const char* word;
    void (*set)(Board& board);  // nullptr: its text is kept and listed
    const char* shown;          // name in the list
    bool restarts;
};

const OptionRow kOptions[] = {
    {"LIST", ListOptions, nullptr, false},
    {"PIN", SetPin, nullptr, false},
    {"DISPLAY", SetDisplay, nullptr, false},
    {"EXPLICIT", SetExplicit, nullptr, false},
    {"BASE", SetBase, nullptr, false},
    {"DEFAULT", SetDefault, nullptr, false},
    {"AUTORUN", nullptr, "AUTORUN ", false},
    {"CASE", nullptr, "CASE", false},
    {"COLOURCODE", nullptr, "COLOURCODE", false},
    {"CPUSPEED", nullptr, "CPUSPEED (KHz)", true},
    {"TAB", nullptr, "TAB", false},
};

// OFF is the default of all of them, and defaults aren't listed.
void KeepOption(Board& board, const OptionRow& row) {
    const std::string value = TakeRest(board);
    if (value.empty()) {
        Fail(board, "Syntax");
    } else if (value == "OFF") {
        board.options.values.erase(row.shown);
    } else {
        board.options.values[row.shown] = value;
    }
    if (row.restarts && !board.basic.failed) RestartBoard(board);
}

}  // namespace

void RunOption(Board& board) {
    for (const OptionRow& row : kOptions) {
        if (!TakeKeyword(board, row.word)) continue;
        if (row.set) {
            row.set(board);
        } else {
            KeepOption(board, row);
        }
        return;
    }
    Fail(board, "Syntax");
}

void PresetOptions(Board& board) {
    auto& values = board.options.values;
    if (board.facts.flash.slots == 0) return;
    values["COLOURCODE"] = "ON";
    values["CPUSPEED (KHz)"] = "252000";
    if (board.setup.i2c) values["SYSTEM I2C"] = "GP14, GP15";
    if (board.setup.sdCard) values["SDCARD"] = "GP22";
    if (board.facts.lcdConsole) values["KEYBOARD"] = "PICOCALC";
}

}  // namespace simulator

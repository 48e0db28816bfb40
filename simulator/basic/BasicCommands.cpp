#include "simulator/basic/BasicCommands.h"

#include <algorithm>
#include <iterator>

#include "simulator/Board.h"
#include "simulator/BoardCommands.h"
#include "simulator/ListCommand.h"
#include "simulator/basic/BasicFlow.h"
#include "simulator/basic/BasicFunctions.h"
#include "simulator/basic/BasicStatements.h"
#include "simulator/files/FileCommands.h"
#include "simulator/files/FileListing.h"

// A row that other boards lack says so by a test of the facts.

namespace simulator {
namespace {

bool HasSlots(const BoardFacts& facts) {
    return facts.flash.slots > 0;
}
bool HasLs(const BoardFacts& facts) {
    return facts.cmm2;
}
bool HasAuto(const BoardFacts& facts) {
    return !facts.receive.saysSaved && !facts.cmm2;
}
bool HasAutosave(const BoardFacts& facts) {
    return !HasAuto(facts);
}

// Where LS lists, FILES is a file manager on the whole screen.
void RunFilesCommand(Board& board) {
    if (board.facts.cmm2)
        return Refuse(board, "Its file manager is not in the simulated board: use LS");
    RunFiles(board);
}

const BasicCommand kCommands[] = {
    {"Auto", StartProgramReceive, false, HasAuto},
    {"AutoSave", StartProgramReceive, false, HasAutosave},
    {"Chdir", RunChdir, false, nullptr},
    {"Clear", ClearVariables, false, nullptr},
    {"CLS", RunCls, false, nullptr},
    {"CPU", RunCpu, false, nullptr},
    {"Date$", RunSetDate, false, nullptr},
    {"Dim", RunDim, false, nullptr},
    {"Do", RunDo, true, nullptr},
    {"Drive", RunDrive, false, HasSlots},
    {"Else", RunElse, true, nullptr},
    {"ElseIf", RunElse, true, nullptr},
    {"End", RunEnd, true, nullptr},
    {"EndIf", RunEndIf, false, nullptr},
    {"Files", RunFilesCommand, false, nullptr},
    {"Flash", RunFlash, false, HasSlots},
    {"For", RunFor, false, nullptr},
    {"GoTo", RunGoto, true, nullptr},
    {"If", RunIf, true, nullptr},
    {"Input", RunInput, false, nullptr},
    {"Kill", RunKill, false, nullptr},
    {"Let", RunLet, false, nullptr},
    {"List", RunList, false, nullptr},
    {"Load", RunLoad, true, nullptr},
    {"Loop", RunLoop, true, nullptr},
    {"LS", RunFiles, false, HasLs},
    {"MkDir", RunMkdir, false, nullptr},
    {"New", RunNew, false, nullptr},
    {"Next", RunNext, true, nullptr},
    {"Option", RunOption, false, nullptr},
    {"Pause", RunPause, false, nullptr},
    {"Print", RunPrint, false, nullptr},
    {"Randomize", RunRandomize, false, nullptr},
    {"Rem", SkipLine, true, nullptr},
    {"RmDir", RunRmdir, false, nullptr},
    {"RTC", RunRtc, false, nullptr},
    {"Run", RunRun, true, nullptr},
    {"Save", RunSave, false, nullptr},
    {"Time$", RunSetTime, false, nullptr},
    {"Timer", RunTimer, false, nullptr},
    {"XModem", RunXmodem, false, nullptr},
};

// Words inside statements.
const char* const kOtherWords[] = {"All",  "And",       "Erase",   "GetTime", "Mod",     "Not",
                                   "Or",   "Overwrite", "Receive", "Send",    "SetTime", "Step",
                                   "Then", "To",        "Until",   "While"};

const char* const kAbsentWords[] = {
    "Append", "Atn",    "Bin$",    "Case",   "Cint",    "Close",  "Const",   "Continue", "Copy",
    "Cwd$",   "Data",   "Deg",     "Edit",   "Execute", "Exit",   "Exp",     "Fix",      "Function",
    "GoSub",  "Hex$",   "Inc",     "Inv",    "LCase$",  "Length", "Line",    "Local",    "Log",
    "Max",    "Memory", "Min",     "Oct$",   "On",      "Open",   "Pi",      "Pin",      "Pixel",
    "Read",   "Rename", "Restore", "Return", "Select",  "SetPin", "SetTick", "Sgn",      "Sort",
    "Static", "Sub",    "Tab",     "Tan",    "Text",    "Xor"};

template <typename Words>
const char* FindIn(const Words& words, std::string_view word) {
    const auto* row = std::find_if(std::begin(words), std::end(words),
                                   [&](const char* each) { return SameWord(each, word); });
    return row == std::end(words) ? nullptr : *row;
}

const BasicCommand* FindRow(std::string_view word) {
    const auto* row =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&](const BasicCommand& each) { return SameWord(each.word, word); });
    return row == std::end(kCommands) ? nullptr : row;
}

// How a known word is spelled; nullptr for a name.
const char* SpellingOf(std::string_view word) {
    if (const BasicCommand* command = FindRow(word)) return command->word;
    if (const BasicFunction* function = FindFunction(word)) return function->word;
    const char* other = FindIn(kOtherWords, word);
    return other ? other : FindIn(kAbsentWords, word);
}

// Calls `each` for each piece of the line: a word with its spelling, or one character.
// Strings, and a comment or remark up to its end, come character by character.
template <typename Each>
void WalkPieces(std::string_view line, Each each) {
    size_t comment = std::min(CommentStart(line), line.size());
    bool quoted = false;
    for (size_t at = 0; at < line.size();) {
        const size_t length = quoted || at >= comment ? 0 : WordLength(line, at);
        const std::string_view piece = line.substr(at, std::max<size_t>(length, 1));
        if (piece[0] == '"') quoted = !quoted;
        each(piece, length > 0 ? SpellingOf(piece) : nullptr);
        at += piece.size();
        if (SameWord(piece, "REM")) comment = at;
    }
}

// What GOTO may name on this line: its number, or its label with a colon; empty for neither.
std::string LabelOf(std::string_view line) {
    line = TrimBlanks(line);
    const size_t length = WordLength(line, 0);
    int64_t number = 0;
    if (ReadInteger(line.substr(0, line.find_first_not_of("0123456789")), &number)) {
        return std::to_string(number);
    }
    const bool labelled = length > 0 && length < line.size() && line[length] == ':';
    return labelled ? UpperText(line.substr(0, length)) : std::string();
}

}  // namespace

const BasicCommand* FindCommand(const BoardFacts& facts, std::string_view word) {
    const BasicCommand* row = FindRow(word);
    return row && (!row->exists || row->exists(facts)) ? row : nullptr;
}

bool IsAbsentWord(std::string_view word) {
    return FindIn(kAbsentWords, word) != nullptr;
}

// The firmware keeps tokens, not text, and writes the words anew when it lists. That is why a
// listing is not the text that was sent.
std::string RecasedLine(std::string_view line) {
    std::string result;
    WalkPieces(line, [&](std::string_view piece, const char* spelling) {
        result += spelling ? std::string_view(spelling) : piece;
    });
    return result;
}

// A line has a mark in front and an end, a word of the language takes two bytes.
size_t TokenisedLineSize(std::string_view line) {
    size_t size = 2;
    WalkPieces(line, [&](std::string_view piece, const char* spelling) {
        size += spelling ? 2 : piece.size();
    });
    return size;
}

// Kept beside the program, so that a GOTO in a long program costs no search. The first one of a
// name counts.
void BuildLabels(Board& board) {
    board.basic.labels.clear();
    for (size_t i = 0; i < board.program.lines.size(); ++i) {
        board.basic.labels.emplace(LabelOf(board.program.lines[i]), static_cast<int>(i));
    }
}

}  // namespace simulator

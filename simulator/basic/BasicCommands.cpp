#include "simulator/basic/BasicCommands.h"

#include <algorithm>

#include "simulator/Board.h"
#include "simulator/ListCommand.h"
#include "simulator/ProgramCommands.h"
#include "simulator/basic/BasicFlow.h"
#include "simulator/basic/BasicFunctions.h"
#include "simulator/basic/BasicStatements.h"
#include "simulator/basic/BasicSubs.h"
#include "simulator/files/FileCommands.h"
#include "simulator/files/FileListing.h"

namespace simulator {

// The table of commands is searched by halves, so its rows are sorted by their words. A row
// that other boards lack says so by a test of the facts.

namespace {

// Which boards know a command. A word that is unknown here is an unknown command there.
bool HasDrive(const BoardFacts& facts) {
    return facts.listing.word[0] != '\0';
}
bool HasSlots(const BoardFacts& facts) {
    return facts.flash.slots > 0;
}
bool HasLs(const BoardFacts& facts) {
    return std::string_view(facts.listing.word) == "LS";
}
bool HasAuto(const BoardFacts& facts) {
    return std::string_view(facts.receive.word) == "AUTO";
}
bool HasAutosave(const BoardFacts& facts) {
    return !HasAuto(facts);
}
bool HasXmodem(const BoardFacts& facts) {
    return HasDrive(facts) || HasSlots(facts);
}

// Where LS lists, FILES is a file manager on the whole screen.
void RunFilesOrManager(Board& board) {
    if (HasLs(board.facts)) {
        RunFileManager(board);
    } else {
        RunFiles(board);
    }
}

// Sorted by word.
const BasicCommand kCommands[] = {
    {"AUTO", "Auto", StartProgramReceive, false, HasAuto},
    {"AUTOSAVE", "AutoSave", StartProgramReceive, false, HasAutosave},
    {"CHDIR", "Chdir", RunChdir, false, HasDrive},
    {"CLEAR", "Clear", RunClear, false, nullptr},
    {"CLS", "CLS", RunCls, false, nullptr},
    {"CPU", "CPU", RunCpu, false, nullptr},
    {"DATE$", "Date$", RunSetDate, false, nullptr},
    {"DIM", "Dim", RunDim, false, nullptr},
    {"DO", "Do", RunDo, true, nullptr},
    {"DRIVE", "Drive", RunDrive, false, HasSlots},
    {"EDIT", "Edit", RunEdit, false, nullptr},
    {"ELSE", "Else", RunElse, true, nullptr},
    {"ELSEIF", "ElseIf", RunElse, true, nullptr},
    {"END", "End", RunEnd, true, nullptr},
    {"ENDIF", "EndIf", RunEndIf, false, nullptr},
    {"EXIT", "Exit", RunExit, true, nullptr},
    {"FILES", "Files", RunFilesOrManager, false, HasDrive},
    {"FLASH", "Flash", RunFlash, false, HasSlots},
    {"FOR", "For", RunFor, false, nullptr},
    {"GOSUB", "GoSub", RunGosub, true, nullptr},
    {"GOTO", "GoTo", RunGoto, true, nullptr},
    {"IF", "If", RunIf, true, nullptr},
    {"INPUT", "Input", RunInput, false, nullptr},
    {"KILL", "Kill", RunKill, false, HasDrive},
    {"LET", "Let", RunLet, false, nullptr},
    {"LIST", "List", RunList, false, nullptr},
    {"LOAD", "Load", RunLoad, true, HasDrive},
    {"LOCAL", "Local", RunLocal, false, nullptr},
    {"LOOP", "Loop", RunLoop, true, nullptr},
    {"LS", "LS", RunFiles, false, HasLs},
    {"MEMORY", "Memory", RunMemory, false, nullptr},
    {"MKDIR", "MkDir", RunMkdir, false, HasDrive},
    {"NEW", "New", RunNew, false, nullptr},
    {"NEXT", "Next", RunNext, true, nullptr},
    {"OPTION", "Option", RunOption, false, nullptr},
    {"PAUSE", "Pause", RunPause, false, nullptr},
    {"PRINT", "Print", RunPrint, false, nullptr},
    {"RANDOMIZE", "Randomize", RunRandomize, false, nullptr},
    {"REM", "Rem", RunRemark, true, nullptr},
    {"RETURN", "Return", RunReturn, true, nullptr},
    {"RMDIR", "RmDir", RunRmdir, false, HasDrive},
    {"RTC", "RTC", RunRtc, false, nullptr},
    {"RUN", "Run", RunRun, true, nullptr},
    {"SAVE", "Save", RunSave, false, HasDrive},
    {"STOP", "Stop", RunEnd, true, nullptr},
    {"SUB", "Sub", SkipSub, true, nullptr},
    {"TIME$", "Time$", RunSetTime, false, nullptr},
    {"TIMER", "Timer", RunTimer, false, nullptr},
    {"XMODEM", "XModem", RunXmodem, false, HasXmodem},
};

// Words of statements that are no commands of their own.
const char* const kOtherWords[] = {
    "All",     "And",  "Append",  "Erase", "GetTime", "Inv", "Mod",   "Not",   "Or", "Overwrite",
    "Receive", "Send", "SetTime", "Step",  "Then",    "To",  "Until", "While", "Xor"};

const BasicCommand* FindRow(std::string_view word) {
    const auto* row = std::lower_bound(
        std::begin(kCommands), std::end(kCommands), word,
        [](const BasicCommand& command, std::string_view key) { return command.word < key; });
    return row != std::end(kCommands) && row->word == word ? row : nullptr;
}

// How a known word is spelled; nullptr for a name.
const char* SpellingOf(const std::string& word) {
    if (const BasicCommand* command = FindRow(word)) return command->shown;
    if (const BasicFunction* function = FindFunction(word)) return function->shown;
    for (const char* other : kOtherWords) {
        if (SameWord(other, word)) return other;
    }
    return nullptr;
}

// Calls `each` for each piece of the line: a word with its spelling, or one character.
// Strings, and a comment up to its end, come character by character.
template <typename Each>
void WalkPieces(std::string_view line, Each each) {
    const size_t comment = std::min(CommentStart(line), line.size());
    bool quoted = false;
    for (size_t at = 0; at < line.size();) {
        const size_t length = quoted || at >= comment ? 0 : WordLength(line, at);
        if (length == 0) {
            if (line[at] == '"') quoted = !quoted;
            each(line.substr(at, 1), nullptr);
            ++at;
            continue;
        }
        const std::string_view word = line.substr(at, length);
        each(word, SpellingOf(UpperText(word)));
        at += length;
        // A remark is kept as it stands, like a comment.
        if (SameWord(word, "REM")) {
            for (; at < line.size(); ++at) each(line.substr(at, 1), nullptr);
        }
    }
}

void AddLabel(Board& board, const std::string& label, int line) {
    board.basic.labels.emplace(label, line);
}

// What GOTO, GOSUB and a call may name on this line: its number, its label with a colon, or the
// name of the SUB that begins here. The first one of a name counts.
void LabelLine(Board& board, std::string_view text, int line) {
    text = TrimBlanks(text);
    size_t digits = 0;
    while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9') ++digits;
    int64_t number = 0;
    if (digits > 0 && ReadInteger(text.substr(0, digits), &number)) {
        AddLabel(board, std::to_string(number), line);
        return;
    }
    const size_t length = WordLength(text, 0);
    if (length == 0) return;
    const std::string word = UpperText(text.substr(0, length));
    if (word == "SUB") {
        const std::string_view rest = TrimBlanks(text.substr(length));
        AddLabel(board, "SUB " + UpperText(rest.substr(0, WordLength(rest, 0))), line);
    } else if (length < text.size() && text[length] == ':') {
        AddLabel(board, word, line);
    }
}

}  // namespace

const BasicCommand* FindCommand(const BoardFacts& facts, std::string_view word) {
    const BasicCommand* row = FindRow(word);
    return row && (!row->exists || row->exists(facts)) ? row : nullptr;
}

// The firmware keeps tokens, not text, and writes the words anew when it lists. That is why a
// listing is not the text that was sent.
std::string RecasedLine(std::string_view line) {
    std::string result;
    WalkPieces(line, [&](std::string_view piece, const char* spelling) {
        if (spelling) {
            result += spelling;
        } else {
            result += piece;
        }
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

// Kept beside the program, so that a GOTO in a long program costs no search.
void BuildLabels(Board& board) {
    board.basic.labels.clear();
    for (size_t i = 0; i < board.program.lines.size(); ++i) {
        LabelLine(board, board.program.lines[i], static_cast<int>(i));
    }
}

}  // namespace simulator

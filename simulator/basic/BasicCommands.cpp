#include "simulator/basic/BasicCommands.h"

#include <algorithm>
#include <iterator>

#include "simulator/Board.h"
#include "simulator/basic/BasicFunctions.h"

namespace simulator {
namespace {

// Words inside statements.
const char* const kOtherWords[] = {"All",  "And",       "Erase",   "GetTime", "Mod",     "Not",
                                   "Or",   "Overwrite", "Receive", "Send",    "SetTime", "Step",
                                   "Then", "To",        "Until",   "While"};

const char* const kAbsentWords[] = {
    "Append", "Asc",      "Atn",    "Bin$",     "Case",  "Chain", "Cint",   "Clear",   "Close",
    "Const",  "Continue", "Copy",   "Cwd$",     "Data",  "Deg",   "Edit",   "Execute", "Exit",
    "Exp",    "Fix",      "Float",  "Function", "GoSub", "Hex$",  "Inc",    "Integer", "Inv",
    "LCase$", "Length",   "Line",   "Local",    "Log",   "Max",   "Memory", "Min",     "MM.Ver",
    "Oct$",   "On",       "Open",   "Pi",       "Pin",   "Pixel", "Read",   "Rename",  "Restore",
    "Return", "Select",   "SetPin", "SetTick",  "Sgn",   "Sort",  "Static", "String",  "Sub",
    "Tab",    "Tan",      "Text",   "Val",      "Xor"};

template <typename Words>
const char* FindIn(const Words& words, std::string_view word) {
    const auto* row = std::find_if(std::begin(words), std::end(words),
                                   [&](const char* each) { return SameWord(each, word); });
    return row == std::end(words) ? nullptr : *row;
}

const BasicCommand* FindRow(std::string_view word) {
    for (const auto* rows :
         {&FlowCommands(), &PlainCommands(), &BoardCommands(), &FileCommands()}) {
        for (const BasicCommand& row : *rows) {
            if (SameWord(row.word, word)) return &row;
        }
    }
    return nullptr;
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

}  // namespace

const BasicCommand* FindCommand(const BoardFacts& facts, std::string_view word) {
    const BasicCommand* row = FindRow(word);
    return row && (!row->exists || row->exists(facts)) ? row : nullptr;
}

bool RefuseAbsent(Board& board, const std::string& word) {
    return FindIn(kAbsentWords, word) && !Fail(board, word + " is not in the simulated board");
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

}  // namespace simulator

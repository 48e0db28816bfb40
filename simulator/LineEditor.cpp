#include "simulator/LineEditor.h"

#include <utility>

#include "simulator/Board.h"

// One row for each key. What a key changes on the line of a command is shown by printing the
// line anew from its start, as the firmware does.

namespace simulator {
namespace {

constexpr size_t kTabWidth = 2;
constexpr size_t kPromptWidth = 2;

// The old boards know no key sequences: every byte is a character to them, as it is in answers.
bool IsPlain(const Board& board) {
    return board.editor.done || !board.facts.prompt.fullEditor;
}

// What would be too long is ignored in silence.
void TypeCharacter(Board& board, char c) {
    std::string& line = board.editor.line;
    if (line.size() >= kMaximumTyped) return;
    line += c;
    Echo(board, std::string(1, c));
    // At the last column newer firmware pushes the terminal's cursor round.
    const size_t width = static_cast<size_t>(board.facts.width);
    if (board.facts.prompt.marksWrap && !board.editor.done &&
        (line.size() + kPromptWidth) % width == 0)
        Echo(board, " \b");
}

void Tab(Board& board) {
    do TypeCharacter(board, ' ');
    while (board.editor.line.size() % kTabWidth != 0);
}

// The line is printed anew with a new text.
void Replace(Board& board, const std::string& text) {
    Echo(board, std::string(board.editor.line.size(), '\b'));
    PutRaw(board, "\x1b[0J");
    Echo(board, text);
    board.editor.line = text;
}

void RubOut(Board& board) {
    std::string& line = board.editor.line;
    if (line.empty()) return;
    if (!IsPlain(board)) return Replace(board, line.substr(0, line.size() - 1));
    line.pop_back();
    Echo(board, "\b \b");
}

// The key for the next line of the history, which this board doesn't keep: an empty one.
void GoDown(Board& board) {
    Replace(board, "");
}

// An empty line just brings the prompt again.
void RunTyped(Board& board) {
    const std::string line(TrimBlanks(board.editor.line));
    if (line.empty() || !board.facts.basic) return ReturnToPrompt(board);
    StartDirectLine(board, line);
}

void Enter(Board& board) {
    Echo(board, "\r\n");
    if (!board.editor.done) return RunTyped(board);
    board.editor.done(board, std::exchange(board.editor.line, {}));
}

// The LF of a CR LF is a second answer for older firmware, and skipped by the newer.
void EnterByLf(Board& board) {
    if (!board.editor.afterCr || !board.facts.prompt.inputSkipsLf) Enter(board);
}

struct EditorKey {
    unsigned char code;
    void (*act)(Board& board);
    const char* command;  // typed over what stands on the line, before Enter
    bool fullOnly;
};

const EditorKey kEditorKeys[] = {
    {'\r', Enter, nullptr, false},
    {'\n', EnterByLf, nullptr, false},
    {'\t', Tab, nullptr, false},
    {'\b', RubOut, nullptr, false},
    {0x03, ReturnToPromptLoudly, nullptr, false},  // that waited behind a busy board
    {0x18, GoDown, nullptr, true},
    {kKeyDown, GoDown, nullptr, true},
    {kKeyF2, Enter, "RUN", true},
    {kKeyF3, Enter, "LIST", true},
    {kKeyF4, Enter, "EDIT", true},
    {kKeyF10, Enter, "AUTOSAVE", true},
};

// Keys outside the table and outside printable ASCII are ignored.
void TakeKey(Board& board, unsigned char key) {
    for (const EditorKey& row : kEditorKeys) {
        if (row.code != key || (row.fullOnly && IsPlain(board))) continue;
        if (row.command && !board.editor.line.empty()) Replace(board, "");
        for (const char* c = row.command; c && *c; ++c) TypeCharacter(board, *c);
        row.act(board);
        return;
    }
    if (key >= ' ' && key < 0x7f) TypeCharacter(board, static_cast<char>(key));
}

void TakeByte(Board& board, unsigned char c);

// A command that has begun leaves the rest, held with its Enter, to wait like other input.
void TakeKeys(Board& board, const std::string& keys) {
    size_t next = 0;
    while (next < keys.size() && board.activity->byte == TakeByte) {
        TakeKey(board, static_cast<unsigned char>(keys[next++]));
    }
    board.ring.insert(board.ring.begin(), keys.begin() + static_cast<long>(next), keys.end());
}

void TakeByte(Board& board, unsigned char c) {
    const std::string keys =
        IsPlain(board) ? std::string(1, static_cast<char>(c)) : DecodeKeyByte(board.editor.keys, c);
    WakeIn(board, board.editor.keys.held.empty() ? kNeverMs : kEscapeHoldMs);
    TakeKeys(board, keys);
    board.editor.afterCr = board.editor.done && c == '\r';
}

void EscapeIsOver(Board& board) {
    WakeIn(board, kNeverMs);
    TakeKeys(board, DecodeKeyTimeout(board.editor.keys));
}

const BoardActivity kEditing = {TakeByte, EscapeIsOver, ReturnToPromptLoudly};

}  // namespace

// Each prompt starts with an empty line and no held key.
void StartLineEditor(Board& board) {
    ReadLine(board, nullptr);
}

void ReadLine(Board& board, LineTaker done) {
    board.editor = {{}, {}, done, done && board.editor.afterCr};
    StartActivity(board, kEditing);
}

}  // namespace simulator

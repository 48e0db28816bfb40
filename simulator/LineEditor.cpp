#include "simulator/LineEditor.h"

#include "simulator/Board.h"
#include "simulator/CommandLine.h"

namespace simulator {

// One row for each key. What a key changes on the line is shown by printing the line anew
// from its start, as the firmware does.

namespace {

constexpr size_t kTabWidth = 2;
constexpr size_t kPromptWidth = 2;
constexpr double kWrapMarkVersion = 6.00;  // first firmware that marks a full row

std::string Backspaces(size_t count) {
    return std::string(count, '\b');
}

// Prints the line anew from its first character; the cursor stands at `before` and is to
// stand at `after`.
void Redraw(Board& board, size_t before, size_t after) {
    LineEditor& editor = board.editor;
    Echo(board, Backspaces(before));
    PutRaw(board, "\x1b[0J");
    Echo(board, editor.line);
    Echo(board, Backspaces(editor.line.size() - after));
    editor.cursor = after;
}

// Inside the line everything is printed anew, at its end only the character itself comes back.
// What would be too long is ignored in silence.
void TypeCharacter(Board& board, char c) {
    LineEditor& editor = board.editor;
    if (editor.line.size() >= kMaximumCommandLine) return;
    if (editor.cursor < editor.line.size()) {
        if (editor.overwrite) {
            editor.line[editor.cursor] = c;
        } else {
            editor.line.insert(editor.cursor, 1, c);
        }
        Redraw(board, editor.cursor, editor.cursor + 1);
        return;
    }
    editor.line += c;
    ++editor.cursor;
    Echo(board, std::string(1, c));
    // At the last column the firmware pushes the terminal's cursor round.
    const size_t width = static_cast<size_t>(board.width);
    if (board.facts.version >= kWrapMarkVersion &&
        (editor.line.size() + kPromptWidth) % width == 0) {
        Echo(board, " \b");
    }
}

void Tab(Board& board) {
    do TypeCharacter(board, ' ');
    while (board.editor.cursor % kTabWidth != 0 && board.editor.line.size() < kMaximumCommandLine);
}

// Firmware with a full editor answers with the whole line, the older one with "\b \b".
void RubOut(Board& board) {
    LineEditor& editor = board.editor;
    if (editor.cursor == 0) return;
    editor.line.erase(editor.cursor - 1, 1);
    if (board.facts.prompt.editor == BoardEditor::kPlain) {
        --editor.cursor;
        Echo(board, "\b \b");
        return;
    }
    Redraw(board, editor.cursor, editor.cursor - 1);
}

void DeleteRight(Board& board) {
    LineEditor& editor = board.editor;
    if (editor.cursor == editor.line.size()) return;
    editor.line.erase(editor.cursor, 1);
    Redraw(board, editor.cursor, editor.cursor);
}

// Printing the character moves the terminal's cursor over it.
void GoRight(Board& board) {
    LineEditor& editor = board.editor;
    if (editor.cursor == editor.line.size()) return;
    Echo(board, editor.line.substr(editor.cursor++, 1));
}

void GoLeft(Board& board) {
    if (board.editor.cursor == 0) return;
    --board.editor.cursor;
    Echo(board, "\b");
}

void GoHome(Board& board) {
    Echo(board, Backspaces(board.editor.cursor));
    board.editor.cursor = 0;
}

void GoEnd(Board& board) {
    LineEditor& editor = board.editor;
    Echo(board, editor.line.substr(editor.cursor));
    editor.cursor = editor.line.size();
}

// Behind the last line of the history stands an empty one.
void ShowHistory(Board& board, size_t at) {
    LineEditor& editor = board.editor;
    const size_t before = editor.cursor;
    editor.historyAt = at;
    editor.line = at < editor.history.size() ? editor.history[at] : std::string();
    Redraw(board, before, editor.line.size());
}

void GoUp(Board& board) {
    if (board.editor.historyAt > 0) ShowHistory(board, board.editor.historyAt - 1);
}

// With nothing later in the history the line is emptied, which even an empty line shows.
void GoDown(Board& board) {
    LineEditor& editor = board.editor;
    ShowHistory(board, std::min(editor.historyAt + 1, editor.history.size()));
}

void ToggleInsert(Board& board) {
    board.editor.overwrite = !board.editor.overwrite;
}

// The line end is echoed behind the whole line, wherever the cursor stood.
void Enter(Board& board) {
    LineEditor& editor = board.editor;
    GoEnd(board);
    Echo(board, "\r\n");
    const std::string line = editor.line;
    editor.line.clear();
    editor.cursor = 0;
    if (!line.empty()) {
        editor.history.push_back(line);
        if (editor.history.size() > kMaximumHistory) editor.history.pop_front();
    }
    ExecuteCommandLine(board, line);
}

// A function key types its command over what stands on the line.
void TypeCommand(Board& board, const char* command) {
    if (!board.editor.line.empty()) ShowHistory(board, board.editor.history.size());
    for (const char* c = command; *c; ++c) TypeCharacter(board, *c);
    Enter(board);
}

struct EditorKey {
    unsigned char code;
    void (*act)(Board& board);
    const char* command;  // typed, when act is nullptr
    bool fullOnly;
};

const EditorKey kEditorKeys[] = {
    {'\r', Enter, nullptr, false},
    {'\n', Enter, nullptr, false},
    {'\t', Tab, nullptr, false},
    {'\b', RubOut, nullptr, false},
    {0x03, BreakToPrompt, nullptr, false},  // that waited behind a busy board
    {0x7f, DeleteRight, nullptr, true},
    {0x04, GoRight, nullptr, true},
    {kKeyRight, GoRight, nullptr, true},
    {0x13, GoLeft, nullptr, true},
    {kKeyLeft, GoLeft, nullptr, true},
    {0x15, GoHome, nullptr, true},
    {kKeyHome, GoHome, nullptr, true},
    {0x0b, GoEnd, nullptr, true},
    {kKeyEnd, GoEnd, nullptr, true},
    {0x05, GoUp, nullptr, true},
    {kKeyUp, GoUp, nullptr, true},
    {0x18, GoDown, nullptr, true},
    {kKeyDown, GoDown, nullptr, true},
    {0x0e, ToggleInsert, nullptr, true},
    {kKeyInsert, ToggleInsert, nullptr, true},
    {kKeyF2, nullptr, "RUN", true},
    {kKeyF3, nullptr, "LIST", true},
    {kKeyF4, nullptr, "EDIT", true},
    {kKeyF10, nullptr, "AUTOSAVE", true},
    {kKeyF11, nullptr, "XMODEM RECEIVE", true},
    {kKeyF12, nullptr, "XMODEM SEND", true},
};

// Keys outside the table and outside printable ASCII are ignored.
void TakeKey(Board& board, unsigned char key) {
    const bool full = board.facts.prompt.editor == BoardEditor::kFull;
    for (const EditorKey& row : kEditorKeys) {
        if (row.code != key || (row.fullOnly && !full)) continue;
        if (row.act) {
            row.act(board);
        } else {
            TypeCommand(board, row.command);
        }
        return;
    }
    if (key >= ' ' && key < 0x7f) TypeCharacter(board, static_cast<char>(key));
}

void TakeByte(Board& board, unsigned char c);

void TakeKeys(Board& board, const std::string& keys) {
    for (size_t i = 0; i < keys.size(); ++i) {
        TakeKey(board, static_cast<unsigned char>(keys[i]));
        if (board.activity->byte == TakeByte) continue;
        // A command has begun; what was held with its Enter waits like other input.
        for (size_t k = keys.size(); k-- > i + 1;) {
            board.in.ring.push_front(static_cast<unsigned char>(keys[k]));
        }
        return;
    }
}

// The old boards know no key sequences: every byte is a character to them.
void TakeByte(Board& board, unsigned char c) {
    std::string keys;
    if (board.facts.prompt.editor == BoardEditor::kFull) {
        DecodeKeyByte(board.editor.keys, c, &keys);
    } else {
        keys += static_cast<char>(c);
    }
    if (board.editor.keys.held.empty()) {
        WakeNever(board);
    } else {
        WakeIn(board, kEscapeHoldMs);
    }
    TakeKeys(board, keys);
}

void EscapeIsOver(Board& board) {
    std::string keys;
    WakeNever(board);
    DecodeKeyTimeout(board.editor.keys, &keys);
    TakeKeys(board, keys);
}

const BoardActivity kEditing = {TakeByte, EscapeIsOver, BreakToPrompt};

}  // namespace

// Each prompt starts with an empty line and no held key.
void StartLineEditor(Board& board) {
    LineEditor& editor = board.editor;
    editor.line.clear();
    editor.cursor = 0;
    editor.historyAt = editor.history.size();
    editor.keys.held.clear();
    StartActivity(board, kEditing);
}

}  // namespace simulator

#include "simulator/files/FileCommands.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

// Success prints nothing. The words of a failure depend on the kind of the drive.

namespace simulator {
namespace {

using PathAction = const char* (*)(FileStore& store, const std::string& path);

// A folder command on another drive than the current one is refused.
bool TakeFolderPath(Board& board, std::string* path) {
    if (!TakePath(board, path)) return false;
    return (*path)[0] == board.files.folder[0] || Fail(board, "Only valid on current drive");
}

void ChangeFolder(Board& board, PathAction action) {
    std::string path;
    if (!TakeFolderPath(board, &path)) return;
    if (const char* error = action(board.files, path)) Fail(board, error);
}

// The root has no "..". The name is shown as it was made.
void RunChdir(Board& board) {
    std::string path;
    if (!TakeFolderPath(board, &path)) return;
    if (!FolderExists(board.files, path)) return Refuse(board, "Could not find the path");
    const StoredFile* entry = FindFile(board.files, path);
    board.files.folder = entry ? JoinPath(FolderOf(path), entry->name) : path;
}

// The firmware asks for each file that fits a pattern.
void RunKill(Board& board) {
    std::string path;
    if (!TakePath(board, &path)) return;
    if (path.find_first_of("*?") != std::string::npos)
        return Refuse(board, "KILL takes no pattern in the simulated board");
    if (const char* error = RemoveFile(board.files, path)) Fail(board, error);
}

// Each change of drive goes to its root.
void RunDrive(Board& board) {
    std::string path;
    const std::string drive = TakeText(board);
    if (board.basic.failed) return;
    if (!ResolvePath(board.files, drive, &path) || drive.size() != 2 || path.size() != 3)
        return Refuse(board, "Invalid disk");
    if (!FolderExists(board.files, path)) return Refuse(board, "SD card not present");
    board.files.folder = path;
}

// A running program ends with this.
void RunLoad(Board& board) {
    std::string path;
    if (TakeProgramPath(board, &path) && LoadProgram(board, path)) ReturnToPrompt(board);
}

// Written with CR LF, as the boards do.
void RunSave(Board& board) {
    std::string path;
    if (!TakeProgramPath(board, &path)) return;
    if (board.program.lines.empty()) return Refuse(board, "Nothing to save");
    const std::string text = JoinProgram(board, "\r\n");
    ChargeWork(board, text.size());
    const char* error = WriteFile(board.files, path, text, BoardSeconds(board));
    if (error) Fail(board, error);
}

}  // namespace

// Drive B: is there only with a card.
bool TakePath(Board& board, std::string* path) {
    const std::string typed = TakeText(board);
    if (board.basic.failed) return false;
    if (!ResolvePath(board.files, typed, path)) return Fail(board, "Could not find the path");
    if (!AtStatementEnd(board)) return Fail(board, "Only a name is taken in the simulated board");
    return FolderExists(board.files, path->substr(0, 3)) || Fail(board, "SD card not present");
}

bool TakeProgramPath(Board& board, std::string* path) {
    if (!TakePath(board, path)) return false;
    *path = WithExtension(*path);
    return true;
}

bool FetchFile(Board& board, const std::string& path, std::string* data) {
    const StoredFile* file = FindFile(board.files, path);
    if (!file || file->isFolder) return Fail(board, "Could not find the file");
    *data = file->data;
    return true;
}

// The old program is gone even when the new one turns out too long.
bool LoadProgram(Board& board, const std::string& path) {
    std::string data;
    if (!FetchFile(board, path, &data)) return false;
    if (const char* error = StoreProgram(board, data)) return Fail(board, error);
    ClearVariables(board);
    return true;
}

const CommandRows& FileCommands() {
    static const CommandRows rows = {
        {"Chdir", RunChdir},
        {"Drive", RunDrive},
        {"Kill", RunKill},
        {"Load", RunLoad, true},
        {"MkDir", [](Board& board) { ChangeFolder(board, MakeFolder); }},
        {"RmDir", [](Board& board) { ChangeFolder(board, RemoveFolder); }},
        {"Save", RunSave},
    };
    return rows;
}

}  // namespace simulator

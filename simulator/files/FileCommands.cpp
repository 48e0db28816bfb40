#include "simulator/files/FileCommands.h"

#include "simulator/Board.h"

// Success prints nothing. The words of a failure depend on the kind of the drive.

namespace simulator {
namespace {

void Report(Board& board, const char* error) {
    if (error) Fail(board, error);
}

// Drive B: is there only with a card.
bool ResolveTyped(Board& board, const std::string& typed, std::string* path) {
    if (!ResolvePath(board.files, typed, path)) return Fail(board, "Could not find the path");
    if ((*path)[0] == 'B' && !board.files.sdCard) return Fail(board, "SD card not present");
    return true;
}

// A folder command on another drive than the current one is refused.
bool TakeFolderPath(Board& board, std::string* path) {
    std::string typed = TakeText(board);
    if (board.facts.cmm2) typed = UpperText(typed);
    if (board.basic.failed || !ResolveTyped(board, typed, path)) return false;
    if ((*path)[0] != board.files.folder[0]) return Fail(board, "Only valid on current drive");
    return true;
}

}  // namespace

bool TakePath(Board& board, std::string* path) {
    const std::string typed = TakeText(board);
    return !board.basic.failed && ResolveTyped(board, typed, path);
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

// The root has no "..". The name is shown as it was made, on the CMM2 in upper case.
void RunChdir(Board& board) {
    std::string path;
    if (!TakeFolderPath(board, &path)) return;
    if (!FolderExists(board.files, path)) return Refuse(board, "Could not find the path");
    const StoredFile* entry = board.facts.cmm2 ? nullptr : FindFile(board.files, path);
    board.files.folder = entry ? JoinPath(FolderOf(path), entry->name) : path;
}

void RunMkdir(Board& board) {
    std::string path;
    if (TakeFolderPath(board, &path)) Report(board, MakeFolder(board.files, path));
}

void RunRmdir(Board& board) {
    std::string path;
    if (TakeFolderPath(board, &path)) Report(board, RemoveFolder(board.files, path));
}

// The firmware asks for each file that fits a pattern.
void RunKill(Board& board) {
    std::string path;
    if (!TakePath(board, &path)) return;
    if (path.find_first_of("*?") != std::string::npos)
        return Refuse(board, "KILL takes no pattern in the simulated board");
    Report(board, RemoveFile(board.files, path));
}

// Each change of drive goes to its root.
void RunDrive(Board& board) {
    const std::string drive = UpperText(TakeText(board));
    if (board.basic.failed) return;
    if (drive != "A:" && drive != "B:") {
        Fail(board, "Invalid disk");
    } else if (drive == "B:" && !board.files.sdCard) {
        Fail(board, "SD card not present");
    } else {
        board.files.folder = drive + "/";
    }
}

// LOAD "f" ends a running program; LOAD "f",R starts the new one.
void RunLoad(Board& board) {
    std::string path;
    if (!TakeProgramPath(board, &path)) return;
    const bool runs = TakeChar(board, ',') && TakeKeyword(board, "R");
    if (!LoadProgram(board, path)) return;
    if (runs) return RunProgram(board);
    ReturnToPrompt(board);
}

// Written with CR LF, as the boards do.
void RunSave(Board& board) {
    std::string path;
    if (!TakeProgramPath(board, &path)) return;
    if (board.program.lines.empty()) return Refuse(board, "Nothing to save");
    const std::string text = JoinProgram(board, "\r\n");
    ChargeWork(board, text.size());
    Report(board, WriteFile(board.files, path, text, BoardSeconds(board)));
}

}  // namespace simulator

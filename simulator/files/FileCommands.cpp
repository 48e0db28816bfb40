#include "simulator/files/FileCommands.h"

#include "simulator/Board.h"
#include "simulator/Question.h"

namespace simulator {

// Success prints nothing. The words of a failure depend on the kind of the drive.

namespace {

constexpr size_t kEntryWork = 32;  // bytes of work for each entry of a folder

bool ReportOf(Board& board, const char* error) {
    return !error || Fail(board, error);
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
    if (board.facts.upperNames) typed = UpperText(typed);
    if (board.basic.failed || !ResolveTyped(board, typed, path)) return false;
    if ((*path)[0] != board.files.folder[0]) return Fail(board, "Only valid on current drive");
    return true;
}

bool HasWildcard(const std::string& name) {
    return name.find_first_of("*?") != std::string::npos;
}

void AskForNext(Board& board);

// N keeps this file and goes on with the next one.
void KillAnswered(Board& board, bool yes) {
    if (yes) RemoveFile(board.files, board.toDelete.back());
    board.toDelete.pop_back();
    AskForNext(board);
}

// KILL with a pattern asks for every file. The names wait with the first one last.
void AskForNext(Board& board) {
    if (board.toDelete.empty()) {
        ResumeBasic(board);
        return;
    }
    AskYesNo(board, "Deleting " + NameOf(board.toDelete.back()) + " ? (Y/N) ", KillAnswered);
}

void KillAllAnswered(Board& board, bool yes) {
    if (yes) {
        for (const std::string& path : board.toDelete) RemoveFile(board.files, path);
    }
    board.toDelete.clear();
    ResumeBasic(board);
}

// Folders are passed over. The list is reversed, so that the next name is its last.
void CollectFiles(Board& board, const std::string& pattern) {
    const std::string folder = FolderOf(pattern);
    const auto found = ListFolder(board.files, folder, NameOf(pattern));
    ChargeWork(board, board.files.entries.size() * kEntryWork);
    board.toDelete.clear();
    for (auto file = found.rbegin(); file != found.rend(); ++file) {
        if (!(*file)->isFolder) board.toDelete.push_back(JoinPath(folder, (*file)->name));
    }
}

// With ALL there is one question for all of them.
void KillPattern(Board& board, const std::string& pattern) {
    const bool all = TakeChar(board, ',') && TakeKeyword(board, "ALL");
    CollectFiles(board, pattern);
    if (board.toDelete.empty()) {
        Fail(board, "Could not find the file");
    } else if (all) {
        Put(board, "Deleting " + NameOf(pattern) + " from " + FolderOf(pattern) + "\r\n");
        AskYesNo(board, "Are you sure ? (Y/N) ", KillAllAnswered);
    } else {
        AskForNext(board);
    }
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

// The old program is gone even when the new one turns out too long.
bool LoadProgram(Board& board, const std::string& path) {
    const StoredFile* file = FindFile(board.files, path);
    if (!file || file->isFolder) return Fail(board, "Could not find the file");
    const char* error = StoreProgram(board, file->data, false);
    if (error) return Fail(board, error);
    board.program.name = file->name;
    ClearVariables(board);
    return true;
}

// The root has no "..".
void RunChdir(Board& board) {
    std::string path;
    if (!TakeFolderPath(board, &path)) return;
    if (!FolderExists(board.files, path)) {
        Fail(board, "Could not find the path");
        return;
    }
    // The name is shown as it was made, on the CMM2 in upper case.
    const StoredFile* entry = board.facts.upperNames ? nullptr : FindFile(board.files, path);
    board.files.folder = entry ? JoinPath(FolderOf(path), entry->name) : path;
}

void RunMkdir(Board& board) {
    std::string path;
    if (TakeFolderPath(board, &path)) ReportOf(board, MakeFolder(board.files, path));
}

void RunRmdir(Board& board) {
    std::string path;
    if (TakeFolderPath(board, &path)) ReportOf(board, RemoveFolder(board.files, path));
}

void RunKill(Board& board) {
    std::string path;
    if (!TakePath(board, &path)) return;
    if (HasWildcard(NameOf(path))) {
        KillPattern(board, path);
    } else {
        ReportOf(board, RemoveFile(board.files, path));
    }
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
    if (runs) {
        RunProgram(board);
    } else {
        EndBasic(board);
    }
}

// Written with CR LF, as the boards do.
void RunSave(Board& board) {
    std::string path;
    if (!TakeProgramPath(board, &path)) return;
    if (board.program.lines.empty()) {
        Fail(board, "Nothing to save");
        return;
    }
    const std::string text = JoinProgram(board, "\r\n");
    ChargeWork(board, text.size());
    ReportOf(board, WriteFile(board.files, path, text, BoardSeconds(board)));
}

}  // namespace simulator

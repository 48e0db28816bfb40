#include "simulator/ShellCommands.h"

#include "simulator/Board.h"
#include "simulator/files/FileListing.h"

namespace simulator {

// One row for each command. They give nullptr, or the words of an error.

namespace {

// A command gets what follows its word, trimmed, and gives nullptr or an error's words.
using ShellCommand = const char* (*)(Board& board, const std::string& rest);

// Names may come in quotes, as BASIC boards want them.
std::string Unquoted(const std::string& text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        return text.substr(1, text.size() - 2);
    }
    return text;
}

bool PathOf(Board& board, const std::string& rest, std::string* path) {
    return !rest.empty() && ResolvePath(board.files, Unquoted(rest), path);
}

const char* ShellEcho(Board& board, const std::string& rest) {
    Put(board, Unquoted(rest) + "\r\n");
    return nullptr;
}

const char* ShellList(Board& board, const std::string& rest) {
    std::string path = board.files.folder;
    if (!rest.empty() && !PathOf(board, rest, &path)) return "no such path";
    if (!FolderExists(board.files, path)) return "no such path";
    size_t folders = 0;
    const auto found = ListFolder(board.files, path, "*");
    for (const StoredFile* file : found) {
        folders += file->isFolder;
        Put(board, ListingLine(board.facts.listing.layout, *file) + "\r\n");
    }
    Put(board, ListingSummary(folders, found.size() - folders) + "\r\n");
    return nullptr;
}

const char* ShellShow(Board& board, const std::string& rest) {
    std::string path;
    const StoredFile* file = PathOf(board, rest, &path) ? FindFile(board.files, path) : nullptr;
    if (!file || file->isFolder) return "no such file";
    for (const char c : file->data) {
        if (c != '\r') Put(board, c == '\n' ? std::string("\r\n") : std::string(1, c));
    }
    FreshLine(board);
    return nullptr;
}

const char* ShellEnter(Board& board, const std::string& rest) {
    std::string path;
    if (!PathOf(board, rest, &path) || !FolderExists(board.files, path)) return "no such path";
    board.files.folder = path;
    return nullptr;
}

const char* ShellFolder(Board& board, const std::string&) {
    Put(board, board.files.folder + "\r\n");
    return nullptr;
}

const char* ShellMakeFolder(Board& board, const std::string& rest) {
    std::string path;
    return PathOf(board, rest, &path) ? MakeFolder(board.files, path) : "no such path";
}

const char* ShellRemove(Board& board, const std::string& rest) {
    std::string path;
    return PathOf(board, rest, &path) ? RemoveFile(board.files, path) : "no such file";
}

const char* ShellRemoveFolder(Board& board, const std::string& rest) {
    std::string path;
    return PathOf(board, rest, &path) ? RemoveFolder(board.files, path) : "no such path";
}

const char* ShellDate(Board& board, const std::string&) {
    Put(board, BoardDate(board) + " " + BoardTime(board) + "\r\n");
    return nullptr;
}

const char* ShellXmodem(Board& board, const std::string& rest) {
    // The BASIC boards' command reads its own words.
    board.basic.directLine = rest;
    board.basic.place = BasicPlace{true, 0, 0};
    board.basic.failed = false;
    RunXmodem(board);
    if (!board.basic.failed) return nullptr;
    board.basic.failed = false;
    return "xmodem: send \"name\" or receive \"name\"";
}

const char* ShellHelp(Board& board, const std::string&);

struct ShellRow {
    const char* word;
    ShellCommand run;
};

const ShellRow kShellRows[] = {
    {"cat", ShellShow},           {"cd", ShellEnter},      {"chdir", ShellEnter},
    {"date", ShellDate},          {"echo", ShellEcho},     {"files", ShellList},
    {"help", ShellHelp},          {"kill", ShellRemove},   {"ls", ShellList},
    {"mkdir", ShellMakeFolder},   {"pwd", ShellFolder},    {"rm", ShellRemove},
    {"rmdir", ShellRemoveFolder}, {"xmodem", ShellXmodem},
};

const char* ShellHelp(Board& board, const std::string&) {
    std::string words = "Commands:";
    for (const ShellRow& row : kShellRows) words += std::string(" ") + row.word;
    Put(board, words + "\r\n");
    return nullptr;
}

const char* RunShellWord(Board& board, std::string_view word, const std::string& rest) {
    for (const ShellRow& row : kShellRows) {
        if (SameWord(row.word, word)) return row.run(board, rest);
    }
    return "unknown command";
}

}  // namespace

void RunShellLine(Board& board, const std::string& line) {
    const size_t blank = std::min(line.find(' '), line.size());
    const std::string rest(TrimBlanks(std::string_view(line).substr(blank)));
    const BoardActivity* before = board.activity;
    const char* error = RunShellWord(board, std::string_view(line).substr(0, blank), rest);
    if (error) Put(board, std::string("error: ") + error + "\r\n");
    // A transfer goes on by itself and comes back to the prompt.
    if (board.activity == before) ReturnToPrompt(board);
}

}  // namespace simulator

#include "simulator/Listings.h"

#include <fnmatch.h>

#include <algorithm>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/files/FileCommands.h"

namespace simulator {
namespace {

constexpr size_t kMaximumListed = 800;  // entries of one listing
constexpr int kEntriesPerMs = 8;        // how fast a folder is read and sorted

// The text behind the command is a folder if there is one of that name, else a pattern in its
// folder.
bool TakeRequest(Board& board, std::string* folder, std::string* pattern) {
    *folder = board.files.folder;
    if (AtStatementEnd(board)) return true;
    std::string path;
    if (!TakePath(board, &path)) return false;
    *folder = path;
    if (FolderExists(board.files, path)) return true;
    *folder = FolderOf(path);
    *pattern = NameOf(path);
    return FolderExists(board.files, *folder) || Fail(board, "Could not find the path");
}

// What lies in the folder and fits the pattern, by name, folders first.
std::vector<const StoredFile*> FindEntries(const Board& board, const std::string& folder,
                                           const std::string& pattern) {
    auto found = ListFolder(board.files, folder);
    const auto isOther = [&](const StoredFile* file) {
        return fnmatch(pattern.c_str(), file->name.c_str(), FNM_CASEFOLD | FNM_NOESCAPE) != 0;
    };
    found.erase(std::remove_if(found.begin(), found.end(), isOther), found.end());
    std::stable_partition(found.begin(), found.end(),
                          [](const StoredFile* file) { return file->isFolder; });
    return found;
}

// The name's column is 1, 13 or 30. Folders have neither date nor size. A file without a time
// stamp has day 00 and month 00.
std::string ListingLine(BoardListing layout, const StoredFile& file) {
    const std::string size = BoardFormat("%10zu", file.data.size());
    if (layout == BoardListing::kNameFirst) {
        std::string line = file.name;
        line.resize(std::max<size_t>(line.size() + 1, 16), ' ');
        return line + (file.isFolder ? "<DIR>" : size);
    }
    if (file.isFolder) return "   <DIR>  " + file.name;
    const std::string stamp =
        file.stamp == 0 ? "00:00 00-00-1980 " : FormatSeconds(file.stamp, "%H:%M %d-%m-%Y ");
    return (layout == BoardListing::kDated ? stamp : "") + size + "  " + file.name;
}

// The oldest families print no path above their list.
void FillPager(Board& board, const std::string& folder,
               const std::vector<const StoredFile*>& found) {
    const ListingFacts& facts = board.facts.listing;
    Pager& pager = board.pager;
    pager = Pager();
    // The cut comes when the width is reached, so a full line holds one character less.
    const int width = board.facts.width - 1;
    size_t folders = 0;
    if (facts.layout != BoardListing::kNameFirst) AddPagedLine(pager, folder, width);
    for (const StoredFile* file : found) {
        folders += file->isFolder;
        AddPagedLine(pager, ListingLine(facts.layout, *file), width);
    }
    const size_t files = found.size() - folders;
    pager.summary = BoardFormat("%zu director%s, %zu file%s", folders, folders == 1 ? "y" : "ies",
                                files, files == 1 ? "" : "s");
    if (facts.bytesFree && folder[0] == 'A') {
        pager.summaryTail = BoardFormat(", %zu bytes free\r\n", FreeBytes(board.files));
    } else {
        pager.summary += "\r\n";
    }
}

}  // namespace

// The CMM2 lists its file, all others the tokens.
void ListLines(Board& board, const std::vector<std::string>& lines, bool stops) {
    board.pager = Pager();
    for (const std::string& line : lines) {
        AddPagedLine(board.pager, board.facts.cmm2 ? line : RecasedLine(line), board.facts.width);
    }
    if (board.facts.cmm2) board.prompt.loud = true;
    const int page = stops ? board.facts.listing.listPage : 0;
    StartPager(board, page, page, 0);
}

void RunList(Board& board) {
    const bool all = TakeKeyword(board, "ALL");
    if (!AtStatementEnd(board))
        return Refuse(board, "LIST shows only the program in the simulated board");
    ListLines(board, board.program.lines, !all);
}

// Nothing comes between the path and the first entry while a large folder is read and sorted.
void RunFiles(Board& board) {
    std::string folder, pattern = "*";
    if (!TakeRequest(board, &folder, &pattern)) return;
    const auto found = FindEntries(board, folder, pattern);
    if (found.size() > kMaximumListed)
        return Refuse(board, BoardFormat("Too many files to list, max %zu", kMaximumListed));
    FillPager(board, folder, found);
    if (board.basic.place.direct) ClearVariables(board);
    if (board.facts.cmm2) board.prompt.loud = true;
    const ListingFacts& facts = board.facts.listing;
    StartPager(board, facts.firstPage, facts.nextPage,
               static_cast<int>(found.size()) / kEntriesPerMs);
}

}  // namespace simulator

#include "simulator/files/FileListing.h"

#include <algorithm>

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {

namespace {

constexpr int kEntriesPerMs = 8;  // how fast a folder is read and sorted

std::string ExtensionOf(const std::string& name) {
    const size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : LowerText(name.substr(dot));
}

using Before = bool (*)(const StoredFile& a, const StoredFile& b);

bool ByName(const StoredFile& a, const StoredFile& b) {
    return LowerText(a.name) < LowerText(b.name);
}
bool ByTime(const StoredFile& a, const StoredFile& b) {
    return a.stamp < b.stamp;
}
bool BySize(const StoredFile& a, const StoredFile& b) {
    return a.data.size() < b.data.size();
}
bool ByType(const StoredFile& a, const StoredFile& b) {
    return ExtensionOf(a.name) < ExtensionOf(b.name);
}

struct OrderRow {
    const char* word;
    Before before;
};
const OrderRow kOrders[] = {{"NAME", ByName}, {"TIME", ByTime}, {"SIZE", BySize}, {"TYPE", ByType}};

// What follows the command: a pattern with or without a folder, and an order.
struct Request {
    std::string folder;
    std::string pattern = "*";
    Before before = ByName;
};

// NAME is the order without a word.
bool TakeOrder(Board& board, Request* request) {
    for (const OrderRow& row : kOrders) {
        if (!TakeKeyword(board, row.word)) continue;
        request->before = row.before;
        return true;
    }
    return Fail(board, "Syntax");
}

// The text is a folder if there is one of that name, else a pattern in its folder.
bool TakeRequest(Board& board, Request* request) {
    request->folder = board.files.folder;
    if (AtStatementEnd(board)) return true;
    if (PeekChar(board) != ',') {
        std::string path;
        if (!TakePath(board, &path)) return false;
        if (FolderExists(board.files, path)) {
            request->folder = path;
        } else {
            request->folder = FolderOf(path);
            request->pattern = NameOf(path);
        }
        if (!FolderExists(board.files, request->folder))
            return Fail(board, "Could not find the path");
    }
    return !TakeChar(board, ',') || TakeOrder(board, request);
}

// Folders first.
void Sort(std::vector<const StoredFile*>* found, Before before) {
    std::stable_sort(found->begin(), found->end(), [&](const StoredFile* a, const StoredFile* b) {
        if (a->isFolder != b->isFolder) return a->isFolder;
        return a->isFolder ? ByName(*a, *b) : before(*a, *b);
    });
}

// A file without a time stamp has day 00 and month 00.
std::string StampText(int64_t stamp) {
    if (stamp == 0) return "00:00 00-00-1980";
    const CivilTime time = CivilFromSeconds(stamp);
    return BoardFormat("%02d:%02d %02d-%02d-%04d", time.hour, time.minute, time.day, time.month,
                       time.year);
}

// The oldest families print no path above their list.
void FillPager(Board& board, const Request& request, const std::vector<const StoredFile*>& found) {
    const ListingFacts& facts = board.facts.listing;
    Pager& pager = board.pager;
    pager = Pager();
    // The cut comes when the width is reached, so a full line holds one character less.
    const int width = board.width - 1;
    size_t folders = 0;
    if (facts.layout != BoardListing::kNameFirst) AddPagedLine(pager, request.folder, width);
    for (const StoredFile* file : found) {
        folders += file->isFolder;
        AddPagedLine(pager, ListingLine(facts.layout, *file), width);
    }
    pager.summary = ListingSummary(folders, found.size() - folders);
    if (facts.bytesFree && request.folder[0] == 'A') {
        pager.summaryTail = BoardFormat(", %zu bytes free\r\n", FreeBytes(board.files));
    } else {
        pager.summary += "\r\n";
    }
}

}  // namespace

// The name's column is 1, 13 or 30. Folders have neither date nor size.
std::string ListingLine(BoardListing layout, const StoredFile& file) {
    const std::string size = BoardFormat("%10zu", file.data.size());
    if (layout == BoardListing::kNameFirst) {
        std::string line = file.name;
        line.resize(std::max<size_t>(line.size() + 1, 16), ' ');
        return line + (file.isFolder ? "<DIR>" : size);
    }
    if (file.isFolder) return "   <DIR>  " + file.name;
    const std::string start = layout == BoardListing::kDated ? StampText(file.stamp) + " " : "";
    return start + size + "  " + file.name;
}

std::string ListingSummary(size_t folders, size_t files) {
    return BoardFormat("%zu director%s, %zu file%s", folders, folders == 1 ? "y" : "ies", files,
                       files == 1 ? "" : "s");
}

// Nothing comes between the path and the first entry while a large folder is read and sorted.
void RunFiles(Board& board) {
    Request request;
    if (!TakeRequest(board, &request)) return;
    auto found = ListFolder(board.files, request.folder, request.pattern);
    if (found.size() > kMaximumListed) {
        Fail(board, BoardFormat("Too many files to list, max %zu", kMaximumListed));
        return;
    }
    Sort(&found, request.before);
    FillPager(board, request, found);
    if (board.basic.place.direct) ClearVariables(board);
    if (board.facts.prompt.listingIsLoud) board.prompt.loud = true;
    const ListingFacts& facts = board.facts.listing;
    StartPager(board, facts.firstPage, facts.nextPage,
               static_cast<int>(found.size()) / kEntriesPerMs);
}

}  // namespace simulator

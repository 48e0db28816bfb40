#include "simulator/ListCommand.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/files/FileCommands.h"
#include "simulator/files/FileListing.h"

namespace simulator {
namespace {

// Which pager stops the listing is the firmware's, whether it stops the command's.
void StartListing(Board& board, bool stops) {
    const ListingFacts& facts = board.facts.listing;
    if (board.facts.cmm2) board.prompt.loud = true;
    board.pager.walks = stops && facts.newListPager;
    const int page = stops ? facts.listPage : 0;
    StartPager(board, page, page, 0);
}

// At the last blank that fits, else in the middle of the word.
void AddWrapped(Pager& pager, std::string_view line, size_t width) {
    while (line.size() > width) {
        const size_t blank = line.rfind(' ', width);
        const bool found = blank != std::string_view::npos && blank > 0;
        pager.lines.emplace_back(line.substr(0, found ? blank : width));
        line.remove_prefix(found ? blank + 1 : width);
    }
    pager.lines.emplace_back(line);
}

// Empty lines of a file are dropped, as the firmware does.
void ListFile(Board& board, const std::string& data, bool stops) {
    board.pager = Pager();
    for (std::string& line : SplitFields(data, '\n', data.size() + 1)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!line.empty()) AddWrapped(board.pager, line, static_cast<size_t>(board.facts.width));
    }
    StartListing(board, stops);
}

}  // namespace

void ListLines(Board& board, const std::vector<std::string>& lines, bool stops) {
    board.pager = Pager();
    for (const std::string& line : lines) {
        // The CMM2 lists its file, all others the tokens.
        AddPagedLine(board.pager, board.facts.cmm2 ? line : RecasedLine(line), board.facts.width);
    }
    StartListing(board, stops);
}

// LIST FILES is the CMM2's long name of LS.
void RunList(Board& board) {
    if (TakeKeyword(board, "FILES")) return RunFiles(board);
    const bool all = TakeKeyword(board, "ALL");
    TakeChar(board, ',');
    if (AtStatementEnd(board)) return ListLines(board, board.program.lines, !all);
    std::string path, data;
    if (TakeProgramPath(board, &path) && FetchFile(board, path, &data)) {
        ListFile(board, data, !all);
    }
}

}  // namespace simulator

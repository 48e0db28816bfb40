// FILES and LS: the listing of a folder in each family's layout.
#pragma once

#include <string>
#include <vector>

#include "simulator/BoardFacts.h"

namespace simulator {

struct Board;
struct StoredFile;

constexpr size_t kMaximumListed = 800;  // entries of one listing

// The command; the cursor stands behind its word.
void RunFiles(Board& board);

// One line of the listing, as the layout has it.
std::string ListingLine(BoardListing layout, const StoredFile& file);

// "1 directory, 2 files".
std::string ListingSummary(size_t folders, size_t files);

}  // namespace simulator

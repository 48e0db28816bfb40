// What lies on the drive of a board that boardsim starts.
#pragma once

#include <string>

#include "simulator/SimulatedBoard.h"

namespace simulator {

// Longer or deeper ones stay on the PC, and so do those that the drive has no room for; a note
// on stderr tells.
constexpr size_t kMaximumPreloadBytes = 4 * 1024 * 1024;
constexpr int kMaximumPreloadDepth = 8;

// A greeting and a few samples.
void AddSampleFiles(SimulatedBoard& board);

// The files and folders of a PC folder; links are not followed. False if it can't be read.
bool AddFolder(SimulatedBoard& board, const std::string& folder);

}  // namespace simulator

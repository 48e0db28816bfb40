// Commands on files and folders. All print nothing on success.
#pragma once

#include <string>

namespace simulator {
struct Board;

// The name at the cursor as a whole path; false with an error set.
bool TakePath(Board& board, std::string* path);

// The same for a program: ".bas" is added.
bool TakeProgramPath(Board& board, std::string* path);

// The file's bytes; false with an error set.
bool FetchFile(Board& board, const std::string& path, std::string* data);

// Reads a program from a file into memory; false with an error set.
bool LoadProgram(Board& board, const std::string& path);

}  // namespace simulator

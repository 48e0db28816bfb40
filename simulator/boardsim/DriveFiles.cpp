#include "simulator/boardsim/DriveFiles.h"

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/stat.h>

namespace simulator {
namespace {

namespace fs = std::filesystem;

struct SampleFile {
    const char* path;
    const char* text;
};

const SampleFile kSamples[] = {
    {"welcome.bas",
     "' The first program of the simulated board\n"
     "PRINT \"Welcome to the simulated \"; MM.DEVICE$; \"!\"\n"
     "PRINT \"Try FILES, LOAD \"; CHR$(34); \"games/guess\"; CHR$(34); \" and LIST.\"\n"},
    {"games/guess.bas",
     "' Guess a number\n"
     "n = INT(RND * 100) + 1\n"
     "DO\n"
     "  INPUT \"Your guess, 1 to 100\"; g\n"
     "  tries = tries + 1\n"
     "  IF g < n THEN PRINT \"More.\"\n"
     "  IF g > n THEN PRINT \"Less.\"\n"
     "LOOP UNTIL g = n\n"
     "PRINT \"Found with\"; tries; \" guesses.\"\n"},
    {"readme.txt", "This drive lives in memory. It is forgotten when boardsim ends.\n"},
};

// Local civil time in seconds since 1970.
int64_t CivilSeconds(time_t moment) {
    tm local = {};
    localtime_r(&moment, &local);
    return static_cast<int64_t>(timegm(&local));
}

// Boards keep local time.
int64_t StampOf(const fs::path& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? CivilSeconds(status.st_mtime) : 0;
}

// Reads one byte more than may be, to see that a file is too long.
bool AddOneFile(SimulatedBoard& board, const fs::path& path, const std::string& name) {
    std::ifstream file(path, std::ios::binary);
    std::string data(kMaximumPreloadBytes + 1, '\0');
    file.read(data.data(), static_cast<std::streamsize>(data.size()));
    data.resize(static_cast<size_t>(file.gcount()));
    return data.size() <= kMaximumPreloadBytes && board.AddFile(name, data, StampOf(path));
}

}  // namespace

void AddSampleFiles(SimulatedBoard& board) {
    for (const SampleFile& sample : kSamples) {
        board.AddFile(sample.path, sample.text, CivilSeconds(time(nullptr)));
    }
}

bool AddFolder(SimulatedBoard& board, const std::string& folder) {
    std::error_code error;
    fs::recursive_directory_iterator walk(folder, error);
    if (error) return false;
    int left = 0;
    for (; walk != fs::recursive_directory_iterator() && !error; walk.increment(error)) {
        if (walk.depth() >= kMaximumPreloadDepth) walk.disable_recursion_pending();
        if (!fs::is_regular_file(walk->symlink_status(error))) continue;
        const std::string name = fs::relative(walk->path(), folder, error).string();
        left += !AddOneFile(board, walk->path(), name);
    }
    if (left > 0)
        std::fprintf(stderr, "boardsim: %d files of %s don't fit\n", left, folder.c_str());
    return true;
}

}  // namespace simulator

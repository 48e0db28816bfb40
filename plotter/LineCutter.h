// Received bytes cut into lines.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

constexpr size_t kLongestLine = 4096;  // bytes; a longer line is dropped

// A line without its end, without escape sequences (ECMA-48), and without control codes but TAB.
// Empty for one that was too long; lines with nothing in them are not reported.
using LineTaker = std::function<void(const std::string& line)>;

class LineCutter {
  public:
    // `take` is called for each line that is whole. CR, LF and CR LF end a line.
    void Feed(const char* bytes, size_t count, const LineTaker& take);
    // At the end of a file, whose last line needs no end.
    void Finish(const LineTaker& take);
    // Forgets the line that has begun. With `inMidLine` so is what comes up to the next line end.
    void Restart(bool inMidLine);

  private:
    enum class State { kText, kEscape, kControl, kString };

    void TakeByte(char byte);
    void EndLine(const LineTaker& take);

    std::string line;
    size_t length = 0;  // of the line as it came
    State state = State::kText;
    bool cut = false;  // its beginning has not been seen
};

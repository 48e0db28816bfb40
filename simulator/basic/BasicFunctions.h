// The functions of the small BASIC, one row for each.
#pragma once

#include "simulator/basic/BasicExpression.h"

namespace simulator {

// One letter of `arguments` for each: n number, t text; from the first capital on they
// may be left out. A row with no letters takes no brackets, or empty ones.
struct BasicFunction {
    const char* word;  // as LIST shows it
    const char* arguments;
    BasicValue (*call)(Board& board, const std::vector<BasicValue>& arguments);
};

// nullptr if there is no such function.
const BasicFunction* FindFunction(std::string_view word);

// Reads the arguments at the cursor and calls it.
BasicValue CallFunction(Board& board, const BasicFunction& function);

}  // namespace simulator

// Expressions: operators, brackets, functions, variables.
#pragma once

#include "simulator/basic/BasicText.h"

namespace simulator {

// The value of the expression at the cursor. After a failure the value means nothing.
BasicValue TakeValue(Board& board);
double TakeNumber(Board& board);
std::string TakeText(Board& board);

// An integer from `low` to `high`; anything else fails with the firmware's words.
int TakeInteger(Board& board, int low, int high);

BasicValue NumberValue(double number);
BasicValue TextValue(std::string text);

// A number as PRINT and STR$ show it, without the blank before a positive one.
std::string NumberText(double number);

}  // namespace simulator

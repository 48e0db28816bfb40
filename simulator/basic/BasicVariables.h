// Variables, and arrays of one dimension.
#pragma once

#include "simulator/basic/BasicExpression.h"

namespace simulator {

// Reads the name at the cursor, with its index if it has one.
BasicValue ReadVariable(Board& board);

// The place that a name at the cursor stands for, made if need be. nullptr with an error.
BasicValue* TakePlace(Board& board);

// The same for a plain name.
BasicValue* PlaceOf(Board& board, const std::string& name);

// Puts a value into a place; types must agree.
void AssignValue(Board& board, BasicValue* place, const BasicValue& value);

// DIM's one item at the cursor: a name, and an array's highest index.
void DimensionOne(Board& board);

}  // namespace simulator

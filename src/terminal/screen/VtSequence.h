// A control sequence and its parameters (ECMA-48).
// Interface thread.
#pragma once

#include <cstdint>

// Parameters stand in slots 1 to 9; slot 0 stays 0. The number of the parameter that is
// being collected is kept beside them, in slot 10. Values wrap in 64 bits.
constexpr int kLastParameter = 9;
constexpr int kCountSlot = 10;

struct VtSequence {
    uint64_t slots[kCountSlot + 1] = {};
    // Slot that took the last digit of this feed; 0 before, 10 after the parameters were
    // cleared. The final of a private sequence reads it.
    int working = 0;
};

void ClearParameters(VtSequence* sequence);     // slots 1 to 9
void ClearTwoParameters(VtSequence* sequence);  // slots 1 and 2
void TakeDigit(VtSequence* sequence, char16_t digit);
void NextParameter(VtSequence* sequence);

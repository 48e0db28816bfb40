#include "terminal/screen/VtSequence.h"

#include <algorithm>

void ClearParameters(VtSequence* sequence) {
    for (int slot = 1; slot <= kLastParameter; ++slot) sequence->slots[slot] = 0;
    sequence->slots[kCountSlot] = 1;
    sequence->working = kCountSlot;
}

void ClearTwoParameters(VtSequence* sequence) {
    sequence->slots[1] = 0;
    sequence->slots[2] = 0;
    sequence->slots[kCountSlot] = 1;
}

void TakeDigit(VtSequence* sequence, char16_t digit) {
    sequence->working = static_cast<int>(sequence->slots[kCountSlot]);
    uint64_t& slot = sequence->slots[sequence->working];
    slot = slot * 10 + (digit - '0');
}

// From the ninth parameter on, further digits run on in its slot.
void NextParameter(VtSequence* sequence) {
    uint64_t& count = sequence->slots[kCountSlot];
    count = std::min<uint64_t>(count + 1, kLastParameter);
}

#include "terminal/screen/LineList.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr int kFirstCapacity = 128;  // a power of two, as each capacity is

// The list's elements stand from `head` on, round the end of `slots`. Slots outside the
// list may hold spare lines.
struct LineRing {
    std::vector<std::unique_ptr<TerminalLine>> slots{kFirstCapacity};
    int head = 0;
    int count = 0;

    int Capacity() const { return static_cast<int>(slots.size()); }
    std::unique_ptr<TerminalLine>& At(int element) {
        return slots[(head + element) & (Capacity() - 1)];
    }
};

LineRing ring;

// Only what was written needs to be cleared.
void MakeNew(TerminalLine* line) {
    std::fill(line->cells, line->cells + line->used + 1, TerminalCell());
    line->length = 0;
    line->used = 0;
}

void Grow() {
    std::vector<std::unique_ptr<TerminalLine>> wider(ring.slots.size() * 2);
    for (int i = 0; i < ring.count; ++i) wider[i] = std::move(ring.At(i));
    ring.slots = std::move(wider);
    ring.head = 0;
}

void AppendLine() {
    if (ring.count == ring.Capacity()) Grow();
    std::unique_ptr<TerminalLine>& slot = ring.At(ring.count);
    if (slot) {
        MakeNew(slot.get());
    } else {
        slot = std::make_unique<TerminalLine>();
    }
    ++ring.count;
}

// The first line leaves the list. In a full ring its slot is the next one to be appended.
void DropFirstLine() {
    std::unique_ptr<TerminalLine> first = std::move(ring.At(0));
    ring.head = (ring.head + 1) & (ring.Capacity() - 1);
    --ring.count;
    std::unique_ptr<TerminalLine>& next = ring.At(ring.count);
    if (!next) next = std::move(first);
}

}  // namespace

TerminalLine* LineAt(int element) {
    return element >= 0 && element < ring.count ? ring.At(element).get() : nullptr;
}

int LineCount() {
    return ring.count;
}

void ResetLines(int count) {
    ring.count = 0;
    AppendLines(count, count);
}

void AppendLines(int count, int most) {
    for (int i = 0; i < count; ++i) {
        if (ring.count > 0 && ring.count >= most) DropFirstLine();
        AppendLine();
    }
}

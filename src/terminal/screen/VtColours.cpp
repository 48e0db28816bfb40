#include "terminal/screen/VtColours.h"

#include <cstdint>

#include "base/Choices.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/VtSequence.h"

namespace {

constexpr uint32_t kColourBits = 0xFFFFFF;
constexpr int kRgbForm = 2;
constexpr int kLastRgbStart = 5;  // a colour of three numbers must begin up to here

// Entries of the palette, in its order, and the colour of 97 and 107, which is none of it.
enum PaletteColour { kBlack, kRed, kGreen, kYellow, kBlue, kMagenta, kCyan, kWhite, kBright };

enum class Change : uint8_t {
    kNone,
    kReset,
    kAttribute,
    kForeground,
    kBackground,
    kDefaultForeground,
    kDefaultBackground,
    kRgbForeground,
    kRgbBackground,
};

struct GraphicRow {
    int code = 0;
    Change change = Change::kNone;
    int value = 0;  // attribute, or entry of the palette
};

// Attributes replace each other. 97 gives black, 107 a black background, unless the user
// chose white, and 100 to 106 nothing: all three are meant.
// clang-format off
constexpr GraphicRow kGraphics[] = {
    // code  change                       value
    {0,      Change::kReset,              0},
    {1,      Change::kAttribute,          kAttributeBold},
    {4,      Change::kAttribute,          kAttributeThirdFont},
    {7,      Change::kAttribute,          kAttributeInverse},
    {30,     Change::kForeground,         kBlack},
    {31,     Change::kForeground,         kRed},
    {32,     Change::kForeground,         kGreen},
    {33,     Change::kForeground,         kYellow},
    {34,     Change::kForeground,         kBlue},
    {35,     Change::kForeground,         kMagenta},
    {36,     Change::kForeground,         kCyan},
    {37,     Change::kForeground,         kWhite},
    {38,     Change::kRgbForeground,      0},
    {39,     Change::kDefaultForeground,  0},
    {40,     Change::kBackground,         kBlack},
    {41,     Change::kBackground,         kRed},
    {42,     Change::kBackground,         kGreen},
    {43,     Change::kBackground,         kYellow},
    {44,     Change::kBackground,         kBlue},
    {45,     Change::kBackground,         kMagenta},
    {46,     Change::kBackground,         kCyan},
    {47,     Change::kBackground,         kWhite},
    {48,     Change::kRgbBackground,      0},
    {49,     Change::kDefaultBackground,  0},
    {90,     Change::kForeground,         kBlack},
    {91,     Change::kForeground,         kRed},
    {92,     Change::kForeground,         kGreen},
    {93,     Change::kForeground,         kYellow},
    {94,     Change::kForeground,         kBlue},
    {95,     Change::kForeground,         kMagenta},
    {96,     Change::kForeground,         kCyan},
    {97,     Change::kForeground,         kBright},
    {107,    Change::kBackground,         kBright},
};
// clang-format on

constexpr int kCodes = 108;  // 0 to 107

// The rows by their code. A code without one does nothing.
struct GraphicIndex {
    constexpr GraphicIndex() : rows() {
        for (const GraphicRow& row : kGraphics) rows[row.code] = row;
    }
    GraphicRow rows[kCodes];
};

constexpr GraphicIndex kIndex;
constexpr GraphicRow kUnknown = {0, Change::kNone, 0};

const GraphicRow& GraphicOf(uint64_t code) {
    return code < kCodes ? kIndex.rows[code] : kUnknown;
}

uint32_t ColourOf(int entry) {
    if (entry == kBright) entry = choices.brightWhite ? kWhite : kBlack;
    return terminalSettings.palette[entry];
}

void SetForeground(uint32_t colour) {
    SetPendingColours(colour, terminalScreen.pendBg);
}

void SetBackground(uint32_t colour) {
    SetPendingColours(terminalScreen.pendFg, colour);
}

void Reset() {
    SetPendingColours(terminalScreen.defaultFg, terminalScreen.defaultBg);
    SetTextAttribute(0);
}

bool HoldsRgb(const VtSequence& sequence, int slot) {
    return slot <= kLastRgbStart && sequence.slots[slot + 1] == kRgbForm;
}

uint32_t RgbBehind(const VtSequence& sequence, int slot) {
    const uint64_t* slots = sequence.slots + slot;
    return static_cast<uint32_t>((slots[2] + slots[3] * 256 + slots[4] * 65536) & kColourBits);
}

// True when the parameter ends the sequence: what follows a colour of three numbers is
// not looked at.
bool ApplyParameter(const VtSequence& sequence, int slot) {
    const GraphicRow& row = GraphicOf(sequence.slots[slot]);
    switch (row.change) {
        case Change::kReset:
            Reset();
            return false;
        case Change::kAttribute:
            SetTextAttribute(row.value);
            return false;
        case Change::kForeground:
            SetForeground(ColourOf(row.value));
            return false;
        case Change::kBackground:
            SetBackground(ColourOf(row.value));
            return false;
        case Change::kDefaultForeground:
            SetForeground(terminalScreen.defaultFg);
            return false;
        case Change::kDefaultBackground:
            SetBackground(terminalScreen.defaultBg);
            return false;
        case Change::kRgbForeground:
            if (HoldsRgb(sequence, slot)) SetForeground(RgbBehind(sequence, slot));
            return HoldsRgb(sequence, slot);
        case Change::kRgbBackground:
            if (HoldsRgb(sequence, slot)) SetBackground(RgbBehind(sequence, slot));
            return HoldsRgb(sequence, slot);
        case Change::kNone:
            return false;
    }
    return false;
}

}  // namespace

void SelectGraphics(VtSequence* sequence) {
    const int count = static_cast<int>(sequence->slots[kCountSlot]);
    for (int slot = 1; slot <= count; ++slot) {
        if (ApplyParameter(*sequence, slot)) break;
    }
    ClearTwoParameters(sequence);
    SetCurrentColours(terminalScreen.pendFg, terminalScreen.pendBg);
    ResetDimColour();
}

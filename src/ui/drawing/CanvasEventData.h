// What a canvas event carries. Interface thread.
#pragma once

#include <cstdint>

class QWidget;

struct CanvasEventData {
    int32_t x = 0;  // pointer, in canvas pixels; may lie outside while a button is held
    int32_t y = 0;
    uint32_t buttons = 0;    // kButton bits of base/Numbers.h
    uint32_t key = 0;        // the toolkit's key code; key down alone
    uint32_t modifiers = 0;  // kModifier bits
    int32_t wheel = 0;       // whole steps of 120, away from the user positive; wheel alone
    uint32_t input = 0;      // UTF-16 unit; input alone
    uint32_t keyOfText = 0;  // key whose text it is, 0 for a composed one; input alone
};

// Raises event 3 of a canvas with a copy of the data. `flags` are those of the event.
void RaiseCanvasEvent(const QWidget* canvas, int64_t type, uint32_t flags,
                      const CanvasEventData& data);

// A canvas attribute (base/Numbers.h) of the current event; 0 unless the current
// event belongs to `gadget` and carries canvas data.
int EventAttribute(int gadget, int attribute);

// The poll: the one reader of the link outside dialogues and transfers. Interface thread.
#pragma once

#include <cstdint>

// One firing of timer 114: at most one buffer-load from the link, routed by the mode. Where
// the user chose so, the timer's event also comes as soon as bytes wait, and again behind a
// full read; a stream that fills none is left to the timer.
void PollLink();

// Shows bytes that the data port's client sent to the device, as the mode says.
void ShowClientBytes(const void* bytes, int64_t count);

// What each final byte of a control sequence does (ECMA-48, VT100, xterm), and the answer that
// one of them asks for. Interface thread.
#pragma once

#include <QString>

#include "terminal/screen/VtSequence.h"

// An unknown final does nothing.
void RunFinal(VtSequence* sequence, char16_t final);
// The finals "h" (set) and "l" (reset) of a private sequence.
void RunPrivateFinal(VtSequence* sequence, bool set);

// The status reply that waits to go to the device, emptied by the call.
QString TakeReplyText();

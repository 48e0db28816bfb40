// The dialogue with a board that is locked by a PIN. Interface thread.
#pragma once

#include <QString>

// `reply` is what the board answered to Ctrl-C. True when the upload may go on: the board
// asked for nothing, or accepted the PIN. Otherwise prints why it may not.
bool PassPinDialogue(const QString& reply);

// The one honest answer of a command whose work is not in this build.
#pragma once

#include <QString>

// Prints `what` and " is not part of this build." in the terminal. Interface thread.
void TellNotBuilt(const QString& what);

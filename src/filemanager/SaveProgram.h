// A program that was read back from the device, into a file of the user's choice.
// Interface thread.
#pragma once

#include <QString>

// Asks for a name in the folder that the PC list shows and writes the text there, one
// byte a character. A cancelled dialog, or a No to overwriting, writes nothing; neither
// does a file that can't be created, and there is no message.
void SaveProgram(const QString& text);

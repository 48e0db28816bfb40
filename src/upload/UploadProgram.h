// Typing a BASIC program into a device: it is put into its receive mode by a command,
// gets the source line by line, each line behind the echo of the one before, and is taken
// out of the mode by a code. Everything here blocks its handler until it is done; what
// the device says meanwhile goes to the waits of the upload alone. Interface thread.
#pragma once

#include <QString>

// Uploads uploadSource.text: break out, PIN dialogue, NEW, clock, receive mode, each line
// by its echo, end code, RUN.
void UploadProgram();

// Uploads a text that did not come from a file.
void UploadPastedText(const QString& text);

// Typing a BASIC program into a device: it is put into its receive mode by a command,
// gets the source line by line, each line behind the echo of the one before, and is taken
// out of the mode by a code. Everything here blocks its handler until it is done; what
// the device says meanwhile goes to the waits of the upload alone. Interface thread.
#pragma once

#include <QString>

constexpr int kLargestSource = 64 * 1024 * 1024;  // bytes read of a source file

// Uploads uploadSource.text: break out, PIN dialogue, NEW, clock, receive mode, each line
// by its echo, end code, RUN.
void UploadProgram();

// The file as 8-bit text, one character a byte. A missing file is created empty. On
// failure prints "File read failed!!" and gives an empty text. Clears pasteSource.
QString ReadSourceFile(const QString& path);

// Prints the path and uploads the file; a "uf2" touches the port instead. Nothing for an
// empty path. StorePath leaves the program on the device without running it, whatever the
// device specification says.
void LoadPath(const QString& path);
void StorePath(const QString& path);

// Uploads a text that did not come from a file.
void UploadPastedText(const QString& text);

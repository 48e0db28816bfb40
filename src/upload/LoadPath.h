// A path from the command line or a local tool, loaded. Interface thread.
#pragma once

#include <QString>

// Prints the path and uploads the file; a "uf2" touches the port instead. Nothing for an
// empty path. StorePath leaves the program on the device without running it, whatever the
// device specification says.
void LoadPath(const QString& path);
void StorePath(const QString& path);

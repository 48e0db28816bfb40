// The local ports between the console and its companions, as the console's settings file has them.
#pragma once

#include <QString>

struct ConsolePorts {
    quint16 control = 50899;  // of the console: takes "/load " and a path
    quint16 data = 50900;     // of the console: the board's bytes, both ways
    quint16 editor = 6832;    // of the editor: takes "/paste"
};

// What the file does not tell, or tells wrongly, stays at its default; so does everything
// when there is no such file.
ConsolePorts ReadConsolePorts(const QString& path);

// Drops from other programs, as copies. Interface thread.
#pragma once

#include <QString>

enum class DropFormat {
    kText = -1,
    kFiles = -3,
};

// Lets a window or gadget take drops of a format; several calls add up.
void EnableWindowDrop(int window, DropFormat format);
void EnableGadgetDrop(int gadget, DropFormat format);

// What the current drop event brought. Files are paths, one a line, given only when
// files were dropped; text is given only when text was.
DropFormat EventDropFormat();
QString EventDropFiles();
QString EventDropText();

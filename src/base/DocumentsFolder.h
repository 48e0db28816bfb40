// Where the user keeps documents, as the desktop has it.
#pragma once

#include <QString>

constexpr int kLargestUserDirs = 64 * 1024;  // bytes read of the desktop's file

// The value of XDG_DOCUMENTS_DIR in .config/user-dirs.dirs of the folder that HOME names,
// with "$HOME" expanded. A file or a value that is missing or relative gives the home
// folder itself. Ends in "/"; empty when HOME is not set. Interface thread.
QString DocumentsFolder();

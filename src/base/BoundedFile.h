// Small files that the program reads at start and that anybody may have spoiled: a
// folder, a pipe or a device under the file's name, or something far too large. No call
// here waits for a writer or a reader, and none reads more than it was asked for. Any
// thread.
#pragma once

#include <QByteArray>
#include <QString>

// Opens a regular file with the flags of open(2), to which those are added that keep the
// call from blocking. A file that is created gets the mode that the umask leaves. The
// descriptor, which is the caller's to close(2), or -1: also for whatever is no regular
// file.
int OpenRegularFile(const QString& path, int flags);

// True when nothing has this name, as against something that cannot be opened.
bool FileIsMissing(const QString& path);

struct BoundedRead {
    QByteArray bytes;     // from the start of the file, at most the limit
    bool opened = false;  // it is a regular file that may be read
    bool whole = false;   // nothing of the file is missing in `bytes`
};

// Reads a file from its start, at most `limit` bytes; nothing for what cannot be opened.
BoundedRead ReadFileUpTo(const QString& path, int limit);

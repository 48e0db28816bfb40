// Writing a file so that its name always stands for a whole one. Any thread.
#pragma once

#include <QByteArray>
#include <QString>

// Writes beside `path`, brings the bytes to the disk, and renames: whoever opens `path`
// finds the old file or the new one, even after a power cut. False when it cannot be done,
// or when something that is no regular file has that name; what was there is then as before.
bool WriteWholeFile(const QString& path, const QByteArray& bytes);

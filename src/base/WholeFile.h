// Writing a file so that its name always stands for a whole one. Any thread.
#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>
#include <cstdint>

// Writes beside `path`, and renames when all is there: whoever opens `path` finds the old
// file or the new one, even after a power cut. What was not committed goes with this
// record.
class WholeFile {
  public:
    // A path that cannot be written is told by Commit, and so is something that has this
    // name and is no regular file.
    explicit WholeFile(const QString& path);
    void Append(const void* bytes, int64_t count);
    // Brings the bytes to the disk and renames. False when anything failed since the start;
    // what was there is then as before.
    bool Commit();

  private:
    QSaveFile file;
};

// The same for bytes that are all there.
bool WriteWholeFile(const QString& path, const QByteArray& bytes);

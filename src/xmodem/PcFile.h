// The file on the PC's side of a transfer. Only regular files are opened: a pipe or a
// device of that name would block the worker. Any thread.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/WholeFile.h"

// Bytes that are sent of one file at the most. At the pace of the protocol that is a day
// and more, and far above what a device can hold.
constexpr int64_t kLargestSentFile = 64 * 1024 * 1024;

// A file that is being fetched. It closes with its owner's stack. Where the user chose
// that files are replaced when complete it is written beside its path, and goes unless it
// is kept.
class PcFile {
  public:
    // Creates the file, or empties one that exists. What can't be created is passed over:
    // appending to it then does nothing.
    explicit PcFile(const QString& path);
    ~PcFile();
    PcFile(const PcFile&) = delete;
    PcFile& operator=(const PcFile&) = delete;

    // A write that fails, as on a full disk, is not told here. Nothing is written from then
    // on, so what stands is the head of the file and not that and a later piece.
    void Append(const uint8_t* bytes, int count);
    // Ends a file that has come whole. False when a file that was written beside its path
    // did not get there; what stands at the path is then as before.
    bool Keep();
    // Deletes the file, if this record created or emptied it.
    void Remove();

  private:
    void Close();

    QString path;
    std::unique_ptr<WholeFile> beside;
    int fd = -1;
    bool created = false;
};

// Size of a regular file in bytes; 0 for whatever else has that name, or nothing has.
int64_t PcFileSize(const QString& path);

// A block of zeros of `size` bytes with as much of the file's head as fits `fileSize`
// read into it. Zeros alone when the file can't be opened.
std::vector<uint8_t> ReadFileImage(const QString& path, int64_t fileSize, int64_t size);

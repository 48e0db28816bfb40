// A file that grows by each line that gave a point.
#pragma once

#include <QFile>

#include "plotter/Recording.h"

class RunningLog {
  public:
    // Appends to the file. False when it can't be written to.
    bool Begin(const QString& path);
    void End() { file.close(); }
    bool IsOpen() const { return file.isOpen(); }
    QString Path() const { return file.fileName(); }

    // The newest row; names before it when there are new ones.
    void AddRow(const Recording& recording);
    // What was added so far is the kernel's: a crash of this program does not cost it. False, and
    // the log has ended, when the disk does not take it.
    bool Flush();

  private:
    void Put(const std::string& text);

    QFile file;
    size_t named = 0;  // series in the last line of names
};

// A source cut into lines, one after the other, without copying what follows. Pure.
#pragma once

#include <QString>

class SourceLines {
  public:
    // The last line may lack its LF; so an empty text is one empty line.
    explicit SourceLines(const QString& source);

    int Count() const { return count; }
    bool AtEnd() const { return taken == count; }
    // The next line without its LF.
    QString Next();

  private:
    const QString text;
    const int count;
    int taken = 0;
    int position = 0;
};

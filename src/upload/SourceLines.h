// A source cut into lines, one after the other, without copying what follows. Pure.
#pragma once

#include <QString>

class SourceLines {
  public:
    // Adds the final LF that the text may lack; so an empty text is one empty line.
    explicit SourceLines(const QString& source);

    int Count() const { return count; }
    bool AtEnd() const { return position >= text.size(); }
    // The next line without its LF.
    QString Next();

  private:
    QString text;
    int count = 0;
    int position = 0;
};

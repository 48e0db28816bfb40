// The copy of a window's unsaved work, for the day that the program or the machine stops.
#pragma once

#include <QString>

class Habits;

class Recovery {
  public:
    // `habits` keeps the list of the copies, and outlives this.
    explicit Recovery(Habits& kept) : habits(kept) {}

    // Writes the copy beside the file; for a text without one, and where that can't be, into
    // the folder of the settings. False when there is room nowhere.
    bool Write(const QString& path, const QByteArray& bytes);
    // Takes over the copy that an editor left which is no more.
    void Adopt(const QString& left) { copy = left; }
    // The work is saved or given up.
    void Drop();

  private:
    bool WriteTo(const QString& place, const QByteArray& bytes);

    Habits& habits;
    QString copy;  // empty for none
};

// Where the copy of a file stands, and the file of a copy; empty for that of a new text.
QString CopyOfFile(const QString& path);
QString FileOfCopy(const QString& copy);

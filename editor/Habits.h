// What the editor keeps from one start to the next.
#pragma once

#include <QFont>
#include <QSettings>
#include <QStringList>

constexpr int kMostRecentFiles = 10;

class Habits {
  public:
    // `file` is made when there is something to keep.
    explicit Habits(const QString& file) : settings(file, QSettings::IniFormat) {}

    // The files that were opened or saved, the last one first.
    QStringList RecentFiles() const;
    void AddRecentFile(const QString& path);

    // The copies of unsaved work that stand somewhere.
    QStringList Copies() const;
    void AddCopy(const QString& copy);
    void RemoveCopy(const QString& copy);

    QByteArray Place() const { return settings.value("place").toByteArray(); }  // of a window
    int Zoom() const;                                                           // points
    QFont Font() const;  // the desktop's, of fixed width, unless another was chosen
    void SetPlace(const QByteArray& place, int zoom);
    void SetFont(const QFont& font);

    // The folder that the file stands in.
    QString Folder() const;

  private:
    QSettings settings;
};

// What the plotter keeps from one start to the next.
#pragma once

#include <QDir>
#include <QSettings>

class PlotHabits {
  public:
    // `file` is made when there is something to keep.
    explicit PlotHabits(const QString& file) : settings(file, QSettings::IniFormat) {}

    QByteArray Place() const { return settings.value("place").toByteArray(); }  // of the window
    QByteArray Parts() const { return settings.value("parts").toByteArray(); }  // plot and legend
    void SetPlace(const QByteArray& place, const QByteArray& parts) {
        settings.setValue("place", place);
        settings.setValue("parts", parts);
    }
    bool ByCount() const { return settings.value("count along x").toBool(); }
    bool OneScaleEach() const { return settings.value("one scale each").toBool(); }
    void SetLook(bool byCount, bool oneScaleEach) {
        settings.setValue("count along x", byCount);
        settings.setValue("one scale each", oneScaleEach);
    }
    // Of the last file.
    QString Folder() const { return settings.value("folder", QDir::homePath()).toString(); }
    void SetFolder(const QString& folder) { settings.setValue("folder", folder); }

  private:
    QSettings settings;
};

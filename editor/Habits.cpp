#include "editor/Habits.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <algorithm>

namespace {

constexpr int kMostZoom = 40;  // points
const char kRecent[] = "recent", kCopies[] = "copies", kZoom[] = "zoom", kFont[] = "font";

}  // namespace

QStringList Habits::RecentFiles() const {
    return settings.value(kRecent).toStringList().mid(0, kMostRecentFiles);
}

void Habits::AddRecentFile(const QString& path) {
    settings.sync();  // another editor may have added one
    QStringList files = RecentFiles();
    files.removeAll(path);
    files.prepend(path);
    settings.setValue(kRecent, QStringList(files.mid(0, kMostRecentFiles)));
}

QStringList Habits::Copies() const {
    return settings.value(kCopies).toStringList();
}

void Habits::AddCopy(const QString& copy) {
    RemoveCopy(copy);
    settings.setValue(kCopies, Copies() << copy);
    settings.sync();
}

void Habits::RemoveCopy(const QString& copy) {
    settings.sync();
    QStringList copies = Copies();
    if (copies.removeAll(copy) > 0) settings.setValue(kCopies, copies);
}

int Habits::Zoom() const {
    return std::max(-kMostZoom, std::min(settings.value(kZoom).toInt(), kMostZoom));
}

QFont Habits::Font() const {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const QString chosen = settings.value(kFont).toString();
    if (!chosen.isEmpty()) font.fromString(chosen);
    return font;
}

void Habits::SetPlace(const QByteArray& place, int zoom) {
    settings.setValue("place", place);
    settings.setValue(kZoom, zoom);
}

void Habits::SetFont(const QFont& font) {
    settings.setValue(kFont, font.toString());
}

QString Habits::Folder() const {
    return QFileInfo(settings.fileName()).absolutePath();
}

#include "editor/Recovery.h"

#include <unistd.h>

#include <QFile>
#include <QFileInfo>

#include "editor/Habits.h"
#include "editor/SourceText.h"

namespace {

const char kEnding[] = ".kwedit";
const char kNewText[] = "New text ";

// A name that nobody has, in the folder of the settings.
QString PlaceOfNewText(const QString& folder) {
    QString place;
    for (int i = 1; place.isEmpty() || QFile::exists(place); ++i) {
        place = QString("%1/%2%3-%4%5").arg(folder, kNewText).arg(getpid()).arg(i).arg(kEnding);
    }
    return place;
}

}  // namespace

bool Recovery::Write(const QString& path, const QByteArray& bytes) {
    if (!copy.isEmpty() && WriteTo(copy, bytes)) return true;
    if (!path.isEmpty() && WriteTo(CopyOfFile(path), bytes)) return true;
    return WriteTo(PlaceOfNewText(habits.Folder()), bytes);
}

// It is known before it is there: a crash between the two leaves no copy that nobody offers.
// Nobody else has to read it, whatever may be in it.
bool Recovery::WriteTo(const QString& place, const QByteArray& bytes) {
    const bool isNew = copy != place;
    if (isNew) habits.AddCopy(place);
    if (!WriteWhole(place, bytes).isEmpty()) {
        if (isNew) habits.RemoveCopy(place);
        return false;
    }
    QFile::setPermissions(place, QFile::ReadOwner | QFile::WriteOwner);
    copy = place;
    return true;
}

void Recovery::Drop() {
    if (copy.isEmpty()) return;
    QFile::remove(copy);
    habits.RemoveCopy(copy);
    copy.clear();
}

QString CopyOfFile(const QString& path) {
    const QFileInfo file(path);
    return file.path() + "/." + file.fileName() + kEnding;
}

QString FileOfCopy(const QString& copy) {
    const QFileInfo facts(copy);
    const QString name = facts.fileName();
    if (!name.startsWith('.') || !name.endsWith(kEnding)) return QString();
    return facts.path() + '/' + name.mid(1, name.size() - 1 - int{sizeof kEnding - 1});
}

#include "base/WholeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// A rename is on the disk only when its folder is.
void SyncFolder(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int fd = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

}  // namespace

bool WriteWholeFile(const QString& path, const QByteArray& bytes) {
    const QFileInfo before(path);
    if (before.exists() && !before.isFile()) return false;
    QSaveFile file(path);
    // Unbuffered, because commit() does not notice a buffer that reaches a full disk in part.
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         file.write(bytes) == bytes.size() && file.commit();
    if (written) SyncFolder(path);
    return written;
}

#include "base/WholeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

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

// Unbuffered, because commit() does not notice a buffer that reaches a full disk in part.
WholeFile::WholeFile(const QString& path) : file(path) {
    const QFileInfo before(path);
    if (before.exists() && !before.isFile()) return;
    file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void WholeFile::Append(const void* bytes, int64_t count) {
    if (!file.isOpen()) return;
    if (file.write(static_cast<const char*>(bytes), count) != count) file.cancelWriting();
}

bool WholeFile::Commit() {
    const bool written = file.isOpen() && file.commit();
    if (written) SyncFolder(file.fileName());
    return written;
}

bool WriteWholeFile(const QString& path, const QByteArray& bytes) {
    WholeFile file(path);
    file.Append(bytes.constData(), bytes.size());
    return file.Commit();
}

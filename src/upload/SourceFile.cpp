#include "upload/SourceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>

#include "terminal/screen/TerminalScreen.h"
#include "upload/UploadOptions.h"

namespace {

constexpr int kReadAtOnce = 65536;    // bytes
constexpr int kNewFileRights = 0666;  // less the user's umask
constexpr int kUpdateFlags = O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

bool IsRegular(int fd) {
    struct stat status = {};
    return fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

// A device, FIFO or socket is refused before it is opened: opening alone can have an
// effect on a device, and a read could wait for ever.
bool IsSomethingElse(const char* name) {
    struct stat status = {};
    return stat(name, &status) == 0 && !S_ISREG(status.st_mode);
}

// For update, and failing that anew: so a file that is missing is created empty. What
// exists is not cut, even if it appeared between the two attempts. -1 on failure.
int OpenForUpdate(const char* name) {
    if (IsSomethingElse(name)) return -1;
    int fd = open(name, kUpdateFlags);
    if (fd < 0) fd = open(name, kUpdateFlags | O_CREAT, kNewFileRights);
    if (fd >= 0 && !IsRegular(fd)) {
        close(fd);
        return -1;
    }
    return fd;
}

// Up to one byte more than the largest source, to tell a file that is larger. The size
// that the file system states is not asked: it need not be true.
bool ReadBytes(int fd, QByteArray& bytes) {
    QByteArray block(kReadAtOnce, '\0');
    while (bytes.size() <= kLargestSource) {
        const ssize_t count = read(fd, block.data(), static_cast<size_t>(block.size()));
        if (count <= 0) return count == 0;
        bytes.append(block.constData(), static_cast<int>(count));
    }
    return true;
}

bool ReadNamedFile(const QString& path, QByteArray& bytes) {
    if (path.contains(QChar(0))) return false;
    const int fd = OpenForUpdate(QFile::encodeName(path).constData());
    if (fd < 0) return false;
    const bool read = ReadBytes(fd, bytes);
    close(fd);
    return read;
}

}  // namespace

bool ReadWholeSource(const QString& path, QString& text) {
    text.clear();
    QByteArray bytes;
    if (!ReadNamedFile(path, bytes)) {
        TerminalPrintLine("File read failed!!");
        return false;
    }
    if (bytes.size() > kLargestSource) {
        TerminalPrintLine("File is larger than " + QString::number(kLargestSource / 1024 / 1024) +
                          " MB and is not uploaded.");
        return false;
    }
    text = QLatin1String(bytes.constData(), bytes.size());
    return true;
}

QString ReadSourceFile(const QString& path) {
    SetPasteSource(false);
    QString text;
    if (!path.isEmpty()) ReadWholeSource(path, text);
    return text;
}

#include "plotter/DataFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstring>
#include <vector>

namespace {

constexpr size_t kPiece = 256 * 1024;  // bytes between two turns of the event loop

}  // namespace

void DataFile::Open(const QString& wanted) {
    Close();
    name = wanted;
    fd = name == "-" ? dup(STDIN_FILENO)
                     : open(QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts = {};
    if (fd < 0 || fstat(fd, &facts) != 0) return Fail();
    isWhole = S_ISREG(facts.st_mode);
    notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     [this] { TakeBytes(); });
}

void DataFile::Close() {
    notifier.reset();
    if (fd >= 0) close(fd);
    fd = -1;
    isWhole = false;
    trouble.clear();
}

void DataFile::TakeBytes() {
    static std::vector<char> piece(kPiece);
    const ssize_t count = read(fd, piece.data(), piece.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (count < 0) Fail();
    if (count <= 0) notifier->setEnabled(false);
    onBytes(QByteArray(piece.data(), static_cast<int>(std::max<ssize_t>(count, 0))));
}

void DataFile::Fail() {
    trouble = strerror(errno);
}

QString DataFile::Sentence() const {
    const QString shown = name == "-" ? QString("The standard input") : name;
    if (!trouble.isEmpty()) return QString("%1 cannot be read: %2").arg(shown, trouble);
    return shown + (notifier && notifier->isEnabled() ? " is being read" : " was read to its end");
}

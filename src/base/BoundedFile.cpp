#include "base/BoundedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

constexpr mode_t kNewFileMode = 0666;  // less the umask
constexpr int kReadStep = 64 * 1024;

// One read(2), begun again when a signal cut it short.
ssize_t ReadSome(int fd, char* buffer, int count, int64_t offset) {
    ssize_t got = 0;
    do {
        got = pread(fd, buffer, static_cast<size_t>(count), offset);
    } while (got < 0 && errno == EINTR);
    return got;
}

void ReadUpTo(int fd, int limit, BoundedRead& result) {
    QByteArray buffer(kReadStep, '\0');
    for (;;) {
        const int have = result.bytes.size();
        // At the limit one byte more is asked for, to learn whether it is there.
        const int room = have < limit ? std::min(limit - have, kReadStep) : 1;
        const ssize_t got = ReadSome(fd, buffer.data(), room, have);
        result.whole = got == 0;
        if (got <= 0 || have >= limit) return;
        result.bytes.append(buffer.constData(), static_cast<int>(got));
    }
}

}  // namespace

int OpenRegularFile(const QString& path, int flags) {
    // Without O_NONBLOCK a pipe of this name would wait for its other end.
    const int safe = flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int fd = open(path.toUtf8().constData(), safe, kNewFileMode);
    if (fd < 0) return -1;
    struct stat facts = {};
    if (fstat(fd, &facts) == 0 && S_ISREG(facts.st_mode)) return fd;
    close(fd);
    return -1;
}

bool FileIsMissing(const QString& path) {
    return access(path.toUtf8().constData(), F_OK) != 0 && errno == ENOENT;
}

BoundedRead ReadFileUpTo(const QString& path, int limit) {
    BoundedRead result;
    const int fd = OpenRegularFile(path, O_RDONLY);
    result.opened = fd >= 0;
    if (!result.opened) return result;
    ReadUpTo(fd, limit, result);
    close(fd);
    return result;
}

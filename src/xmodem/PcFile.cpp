#include "xmodem/PcFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/BoundedFile.h"
#include "base/Choices.h"

namespace {

// read(2) or write(2) until `count` bytes went over or no more will. True for all.
template <typename Call, typename Bytes>
bool MoveAll(Call call, int fd, Bytes* bytes, int64_t count) {
    for (int64_t done = 0; done < count;) {
        const ssize_t step = call(fd, bytes + done, static_cast<size_t>(count - done));
        if (step < 0 && errno == EINTR) continue;
        if (step < 1) return false;
        done += step;
    }
    return true;
}

}  // namespace

PcFile::PcFile(const QString& name) : path(name) {
    if (choices.replaceWhenComplete) {
        beside = std::make_unique<WholeFile>(path);
        return;
    }
    fd = OpenRegularFile(path, O_WRONLY | O_CREAT | O_TRUNC);
    created = fd >= 0;
}

PcFile::~PcFile() {
    Close();
}

void PcFile::Append(const uint8_t* bytes, int count) {
    if (beside) beside->Append(bytes, count);
    if (fd >= 0 && !MoveAll(write, fd, bytes, count)) Close();
}

void PcFile::Close() {
    if (fd >= 0) close(fd);
    fd = -1;
}

bool PcFile::Keep() {
    Close();
    return !beside || beside->Commit();
}

void PcFile::Remove() {
    Close();
    beside.reset();
    if (created) unlink(path.toUtf8().constData());
}

int64_t PcFileSize(const QString& path) {
    struct stat facts = {};
    if (stat(path.toUtf8().constData(), &facts) != 0) return 0;
    return S_ISREG(facts.st_mode) ? facts.st_size : 0;
}

std::vector<uint8_t> ReadFileImage(const QString& path, int64_t fileSize, int64_t size) {
    std::vector<uint8_t> image(static_cast<size_t>(size), 0);
    const int fd = OpenRegularFile(path, O_RDONLY);
    if (fd < 0) return image;
    MoveAll(read, fd, image.data(), fileSize);
    close(fd);
    return image;
}

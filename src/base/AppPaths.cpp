#include "base/AppPaths.h"

#include <unistd.h>

#include <string>

#include "base/TextRules.h"

namespace {

AppPaths paths;

// The target of a symbolic link. readlink(2) does not tell a cut name from one that fits
// exactly, so the buffer grows until there is room to spare.
QString LinkTarget(const char* link) {
    constexpr int kFirstSize = 255;
    constexpr int kStep = 256;
    constexpr int kLongest = 64 * 1024;
    for (int size = kFirstSize; size < kLongest; size += kStep) {
        std::string buffer(static_cast<size_t>(size), '\0');
        const ssize_t length = readlink(link, &buffer[0], buffer.size());
        if (length < 0) return QString();
        if (length < size) return QString::fromUtf8(buffer.data(), static_cast<int>(length));
    }
    return QString();
}

}  // namespace

const AppPaths& appPaths = paths;

void ResolveAppPaths() {
    paths.executable = LinkTarget("/proc/self/exe");
    paths.programFolder = FolderPart(paths.executable);
    paths.dataFolder = paths.programFolder + "data" + paths.pathSeparator;
}

QString SettingsPath() {
    return paths.dataFolder + paths.settingsFileName;
}

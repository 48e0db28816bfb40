#include "shell/SingleInstance.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <dirent.h>
#include <fcntl.h>
#include <pcre2.h>
#include <unistd.h>

#include <QByteArray>
#include <memory>

#include "base/Pacing.h"
#include "link/LocalCommand.h"

namespace {

constexpr int kLongestArgument = 64 * 1024;  // bytes read of a process's command line
constexpr int kHandOverPause = 20;           // milliseconds

struct ExpressionFree {
    void operator()(pcre2_code* code) const { pcre2_code_free(code); }
};
using Expression = std::unique_ptr<pcre2_code, ExpressionFree>;

Expression CompileExpression(const char* pattern) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    return Expression(pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern), PCRE2_ZERO_TERMINATED, 0,
                                    &error, &offset, nullptr));
}

// A search, not a whole-name match: any name with a digit in it counts.
bool Matches(const Expression& expression, const char* name) {
    pcre2_match_data* match = pcre2_match_data_create_from_pattern(expression.get(), nullptr);
    const int found = pcre2_match(expression.get(), reinterpret_cast<PCRE2_SPTR>(name),
                                  PCRE2_ZERO_TERMINATED, 0, 0, match, nullptr);
    pcre2_match_data_free(match);
    return found > 0;
}

// The first argument of a process: its command line up to the first NUL. Empty when it
// can't be read.
QByteArray FirstArgument(const char* process) {
    const QByteArray path = QByteArray("/proc/") + process + "/cmdline";
    const int fd = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return QByteArray();
    QByteArray line(kLongestArgument, '\0');
    const ssize_t length = read(fd, line.data(), static_cast<size_t>(line.size()));
    close(fd);
    if (length <= 0) return QByteArray();
    line.truncate(static_cast<int>(length));
    const int end = line.indexOf('\0');
    return end < 0 ? line : line.left(end);
}

}  // namespace

int CountOwnProcesses(const QString& executable) {
    const Expression digits = CompileExpression("[0-9]+");
    DIR* processes = opendir("/proc");
    if (!digits || !processes) {
        if (processes) closedir(processes);
        return 0;
    }
    const QByteArray path = executable.toUtf8();
    int count = 0;
    while (const dirent* entry = readdir(processes)) {
        if (Matches(digits, entry->d_name) && FirstArgument(entry->d_name).contains(path)) ++count;
    }
    closedir(processes);
    return count;
}

void HandOver(const QString& commandLine, int port) {
    SendLocalCommand(port, "/load " + commandLine + "\r");
    SleepMs(kHandOverPause);
}

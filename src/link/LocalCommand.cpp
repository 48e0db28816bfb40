#include "link/LocalCommand.h"

#include "base/Pacing.h"
#include "link/TcpClient.h"

namespace {

constexpr int64_t kPauseBeforeClosing = 20;  // milliseconds

}  // namespace

// Who takes less than the whole command is gone already: there is no retry.
void SendLocalCommand(int port, const QString& command) {
    const int fd = ConnectTcpClient("localhost", port);
    if (fd < 1) return;
    const QByteArray bytes = command.toUtf8();
    SendTcpBytes(fd, bytes.constData(), bytes.size());
    SleepMs(kPauseBeforeClosing);
    CloseTcpClient(fd);
}

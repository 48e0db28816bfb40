#include "link/FollowCable.h"

#include <QString>

#include "base/Choices.h"
#include "base/Pacing.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/SerialPort.h"

namespace {

struct LostPort {
    QString name;  // empty for none
    int64_t nextTry = 0;
};

LostPort lost;

// A port that was picked meanwhile is not the one that was lost.
QString PortInUse() {
    const bool serial = !linkStatus.deviceOnTcpip;
    const QString& port = linkSettings.comPort;
    return serial && linkStatus.linkLabel.startsWith(port + ':') ? port : QString();
}

void LoseLink() {
    const QString port = PortInUse();
    DisconnectDevice();
    lost = {port, NowMs() + kRetryInterval};
}

bool IsStillWanted() {
    return !linkStatus.deviceOnTcpip && !SerialLinkIsOpen() && linkSettings.comPort == lost.name;
}

void TakeUpAgain() {
    if (!IsStillWanted()) {
        lost = LostPort();
    } else if (NowMs() >= lost.nextTry) {
        lost.nextTry = NowMs() + kRetryInterval;
        if (ReopenSerialPort()) lost = LostPort();
    }
}

}  // namespace

void FollowCable() {
    if (!choices.followCable) return;
    if (HasEnded(LinkDescriptor())) LoseLink();
    if (!lost.name.isEmpty()) TakeUpAgain();
}

#include "link/LinkSettings.h"

namespace {

LinkSettings settings;

}  // namespace

const LinkSettings& linkSettings = settings;

LinkSettings& LinkSettingsForTable() {
    return settings;
}

void SetComPort(const QString& name) {
    settings.comPort = name;
}

void SetSerialSpeed(const QString& baud) {
    settings.serialSpeed = baud;
}

void SetTcpEndpoint(const QString& address, const QString& port) {
    settings.tcpAddress = address;
    settings.tcpPort = port;
}

void StoreDeviceOnTcpip(bool on) {
    settings.deviceOnTcpip = on ? 1 : 0;
}

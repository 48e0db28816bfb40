#include "ports/SerialPorts.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>

namespace {

const char kDeviceFolder[] = "/dev/";
const char kLastingLinks[] = "KW-*";  // as the udev rules name them

// Of several links the first by name; a device with two ports has one for each.
QString LastingPathOf(const QString& path) {
    const QDir folder(kDeviceFolder, kLastingLinks, QDir::Name, QDir::System | QDir::Files);
    for (const QFileInfo& link : folder.entryInfoList()) {
        if (link.symLinkTarget() == path) return link.filePath();
    }
    return QString();
}

SerialPort FromInfo(const QSerialPortInfo& info) {
    SerialPort port{info.systemLocation()};
    port.lastingPath = LastingPathOf(port.path);
    port.maker = info.manufacturer();
    port.product = info.description();
    port.serialNumber = info.serialNumber();
    port.vendorId = info.vendorIdentifier();
    port.productId = info.productIdentifier();
    return port;
}

bool IsCharacterDevice(const QString& path) {
    struct stat facts = {};
    return stat(QFile::encodeName(path).constData(), &facts) == 0 && S_ISCHR(facts.st_mode);
}

}  // namespace

std::vector<SerialPort> ListSerialPorts() {
    std::vector<SerialPort> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        ports.push_back(FromInfo(info));
    }
    std::sort(ports.begin(), ports.end(),
              [](const SerialPort& a, const SerialPort& b) { return a.path < b.path; });
    return ports;
}

SerialPort NamedSerialPort(const QString& name, const std::vector<SerialPort>& listed) {
    const QString inDevices = kDeviceFolder + name;
    const QString path = QFileInfo(QFile::exists(inDevices) ? inDevices : name).canonicalFilePath();
    for (const SerialPort& port : listed) {
        if (port.path == path) return port;
    }
    return IsCharacterDevice(path) ? SerialPort{path, LastingPathOf(path)} : SerialPort{QString()};
}

#include "companion/ConsolePorts.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 kMostRead = 1024 * 1024;  // bytes of the file that are looked at
const char kGroup[] = "[network]";

void TakePort(const QString& value, quint16& port) {
    bool good = false;
    const uint number = value.trimmed().toUInt(&good);
    if (good && number > 0 && number <= 65535) port = static_cast<quint16>(number);
}

void TakeKey(const QString& line, ConsolePorts& ports) {
    const QString key = line.section('=', 0, 0).trimmed().toLower();
    const QString value = line.section('=', 1);
    if (key == "ip control port") TakePort(value, ports.control);
    if (key == "ip data port") TakePort(value, ports.data);
    if (key == "kwedit control port") TakePort(value, ports.editor);
}

}  // namespace

ConsolePorts ReadConsolePorts(const QString& path) {
    ConsolePorts ports;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return ports;
    QString text = QString::fromUtf8(file.read(kMostRead));
    bool inGroup = false;
    for (const QString& whole : text.replace('\r', '\n').split('\n')) {
        const QString line = whole.trimmed();
        if (line.startsWith('[')) inGroup = line.toLower() == kGroup;
        if (inGroup) TakeKey(line, ports);
    }
    return ports;
}

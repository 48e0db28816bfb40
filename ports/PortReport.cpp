#include "ports/PortReport.h"

#include "ports/PortSpecification.h"

namespace {

// Makers repeat themselves: "FTDI", "FTDI USB Serial".
QString NameOf(const SerialPort& port) {
    return port.product.startsWith(port.maker) ? port.product : port.maker + ' ' + port.product;
}

QString DeviceText(const SerialPort& port) {
    if (port.vendorId == 0) return "not a USB device";
    QString text = QString("%1 (%2:%3)")
                       .arg(NameOf(port))
                       .arg(port.vendorId, 4, 16, QChar('0'))
                       .arg(port.productId, 4, 16, QChar('0'))
                       .trimmed();
    if (!port.serialNumber.isEmpty()) text += ", serial number " + port.serialNumber;
    return text;
}

QString Line(const char* what, const QString& text) {
    return QString("  %1  %2\n").arg(QString(what), -13).arg(text);
}

QString SpecificationLines(const SerialPort& port) {
    const QString line = PortSpecification(port, port.path);
    if (line.isEmpty()) return Line("specification", "none: its name does not fit into one");
    QString lines = Line("specification", line);
    const QString lasting = PortSpecification(port, port.lastingPath);
    if (!lasting.isEmpty()) lines += Line("in any socket", lasting);
    if (!BoardIsKnown(port)) lines += Line("", "put in the family and the speed of your board");
    return lines;
}

}  // namespace

QString PortReport(const SerialPort& port, const QString& access, const QStringList& holders) {
    return port.path + '\n' + Line("device", DeviceText(port)) + Line("access", access) +
           (holders.isEmpty() ? QString() : Line("held by", holders.join(", "))) +
           SpecificationLines(port);
}

#include "ports/PortSpecification.h"

#include <QRegularExpression>

namespace {

struct BoardRow {
    quint16 vendor;
    quint16 product;  // 0 for any
    const char* family;
    bool ownPort;  // the board's own USB port, not an adapter's
};

// The last row stands for all other ports.
constexpr BoardRow kBoards[] = {
    {0x2e8a, 0, "picomite", true},        // Raspberry Pi RP2040 and RP2350
    {0x04d8, 0x000a, "maximite", true},   // Microchip: Maximite, Micromite Plus
    {0x0483, 0x5740, "micromite", true},  // STMicroelectronics: Armmite
    {0x1a86, 0, "cmm2", false},           // CH340 and CH9102: CMM2 and cheap adapters
    {0, 0, "picomite", false},
};

const BoardRow& BoardOn(const SerialPort& port) {
    const BoardRow* row = kBoards;
    while (row->vendor &&
           (row->vendor != port.vendorId || (row->product && row->product != port.productId))) {
        ++row;
    }
    return *row;
}

}  // namespace

QString PortSpecification(const SerialPort& port, const QString& path) {
    static const QRegularExpression carried("^/dev/([^\\s:\\\\']+)$");
    const QRegularExpressionMatch name = carried.match(path);
    if (!name.hasMatch()) return QString();
    return QString("'target s\\%1 port\\%2:115200 le\\cr")
        .arg(QString(BoardOn(port).family), name.captured(1));
}

bool BoardIsKnown(const SerialPort& port) {
    return BoardOn(port).ownPort;
}

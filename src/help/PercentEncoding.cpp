#include "help/PercentEncoding.h"

#include <cstring>

namespace {

bool PassesUnchanged(char byte) {
    const bool letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    const bool digit = byte >= '0' && byte <= '9';
    return letter || digit || (byte && strchr("_!~&'()*=,-./:;?#$@", byte));
}

}  // namespace

QString PercentEncode(const QString& address) {
    const char digits[] = "0123456789ABCDEF";
    QString encoded;
    for (const char byte : address.toUtf8()) {
        if (PassesUnchanged(byte)) {
            encoded += QLatin1Char(byte);
            continue;
        }
        const int value = static_cast<unsigned char>(byte);
        encoded += QLatin1Char('%');
        encoded += QLatin1Char(digits[value / 16]);
        encoded += QLatin1Char(digits[value % 16]);
    }
    return encoded;
}

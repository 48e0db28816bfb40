#include "base/EightBitText.h"

#include <QFile>

namespace {

constexpr int kWrittenAtOnce = 1 << 20;  // characters; a capture can be long

}  // namespace

void WriteEightBitText(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    for (int at = 0; at < text.size(); at += kWrittenAtOnce) {
        file.write(text.mid(at, kWrittenAtOnce).toLatin1());
    }
}

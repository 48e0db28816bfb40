#include "encoding/EncodedHeader.h"

#include <sodium.h>

#include <QList>
#include <algorithm>

namespace {

constexpr int kHeaderLines = 4;
constexpr int kLongestHeader = 256;  // bytes
const char kFirstLine[] = "KWHEX 1\n";
const char kDerivation[] = "argon2id ";

template <size_t N>
QByteArray HexLine(const std::array<uint8_t, N>& bytes) {
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), N).toHex() + '\n';
}

// What is no hexadecimal digit is passed over here; the caller compares the outcome.
template <size_t N>
bool ReadHexLine(const QByteArray& line, std::array<uint8_t, N>& bytes) {
    const QByteArray read = QByteArray::fromHex(line);
    if (read.size() != static_cast<int>(N)) return false;
    std::copy(read.begin(), read.end(), bytes.begin());
    return true;
}

bool ReadCost(const QByteArray& line, EncodedHeader& header) {
    const QList<QByteArray> words = line.split(' ');
    if (words.size() != 3) return false;
    bool good = false;
    bool alsoGood = false;
    header.passes = words[1].toUInt(&good);
    header.memoryKib = words[2].toUInt(&alsoGood);
    return good && alsoGood;
}

bool CostIsAllowed(const EncodedHeader& header) {
    return header.passes >= 1 && header.passes <= kMostPasses &&
           header.memoryKib >= kLeastMemoryKib && header.memoryKib <= kMostMemoryKib;
}

}  // namespace

EncodedHeader NewEncodedHeader() {
    EncodedHeader header;
    randombytes_buf(header.salt.data(), header.salt.size());
    randombytes_buf(header.nonce.data(), header.nonce.size());
    return header;
}

QByteArray FormatEncodedHeader(const EncodedHeader& header) {
    return kFirstLine +
           (kDerivation + QByteArray::number(header.passes) + ' ' +
            QByteArray::number(header.memoryKib) + '\n') +
           HexLine(header.salt) + HexLine(header.nonce);
}

EncodedFault ReadEncodedHeader(const QByteArray& file, EncodedHeader& header, int& length) {
    if (!file.startsWith(kFirstLine)) return EncodedFault::kUnknown;
    const QList<QByteArray> lines = file.left(kLongestHeader).split('\n');
    const bool read = lines.size() > kHeaderLines && ReadCost(lines[1], header) &&
                      ReadHexLine(lines[2], header.salt) && ReadHexLine(lines[3], header.nonce);
    const QByteArray same = FormatEncodedHeader(header);
    if (!read || !file.startsWith(same)) return EncodedFault::kDamaged;
    length = same.size();
    return CostIsAllowed(header) ? EncodedFault::kNone : EncodedFault::kTooCostly;
}

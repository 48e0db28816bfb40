#include "encoding/EncodedSource.h"

#include <algorithm>

namespace {

constexpr int kDigitsInLine = 64;
constexpr int kTagBytes = crypto_aead_xchacha20poly1305_ietf_ABYTES;
constexpr int kKeyBytes = crypto_aead_xchacha20poly1305_ietf_KEYBYTES;
constexpr size_t kKib = 1024;  // bytes

static_assert(kSaltBytes == crypto_pwhash_SALTBYTES, "salt of the key derivation");
static_assert(kNonceBytes == crypto_aead_xchacha20poly1305_ietf_NPUBBYTES, "nonce of the cipher");

// For the interfaces that count in unsigned bytes.
const uint8_t* Bytes(const QByteArray& bytes) {
    return reinterpret_cast<const uint8_t*>(bytes.constData());
}

QByteArray HexLines(const QByteArray& bytes) {
    const QByteArray digits = bytes.toHex();
    QByteArray lines;
    lines.reserve(digits.size() + digits.size() / kDigitsInLine + 1);
    for (int at = 0; at < digits.size(); at += kDigitsInLine) {
        lines.append(digits.constData() + at, std::min(kDigitsInLine, digits.size() - at));
        lines += '\n';
    }
    return lines;
}

// An empty key when the memory that the header asks for is not to be had.
SecretBytes DeriveKey(const EncodedHeader& header, const SecretBytes& passphrase) {
    SecretBytes key(kKeyBytes);
    const bool made =
        sodium_init() >= 0 &&
        crypto_pwhash(key.data(), key.size(), reinterpret_cast<const char*>(passphrase.data()),
                      passphrase.size(), header.salt.data(), header.passes, header.memoryKib * kKib,
                      crypto_pwhash_ALG_ARGON2ID13) == 0;
    return made ? key : SecretBytes();
}

}  // namespace

EncodedFault ParseEncodedSource(const QByteArray& file, EncodedSource& source) {
    int length = 0;
    const EncodedFault fault = ReadEncodedHeader(file, source.header, length);
    if (fault != EncodedFault::kNone) return fault;
    source.headerText = file.left(length);
    const QByteArray body = file.mid(length);
    // fromHex passes over what is no digit, so its outcome is written again and compared.
    source.ciphertext = QByteArray::fromHex(body);
    if (source.ciphertext.size() > kLargestEncodedText + kTagBytes) return EncodedFault::kTooLarge;
    const bool whole = source.ciphertext.size() >= kTagBytes && HexLines(source.ciphertext) == body;
    return whole ? EncodedFault::kNone : EncodedFault::kDamaged;
}

EncodedFault OpenEncodedSource(const EncodedSource& source, const SecretBytes& passphrase,
                               SecretBytes& plain) {
    plain.clear();
    const SecretBytes key = DeriveKey(source.header, passphrase);
    if (key.empty()) return EncodedFault::kNoMemory;
    SecretBytes text(static_cast<size_t>(source.ciphertext.size() - kTagBytes));
    const int refused = crypto_aead_xchacha20poly1305_ietf_decrypt(
        text.data(), nullptr, nullptr, Bytes(source.ciphertext),
        static_cast<unsigned long long>(source.ciphertext.size()), Bytes(source.headerText),
        static_cast<unsigned long long>(source.headerText.size()), source.header.nonce.data(),
        key.data());
    if (refused != 0) return EncodedFault::kRefused;
    plain.swap(text);
    return EncodedFault::kNone;
}

EncodedFault SealEncodedSource(const EncodedHeader& header, const SecretBytes& passphrase,
                               const SecretBytes& plain, QByteArray& file) {
    if (plain.size() > kLargestEncodedText) return EncodedFault::kTooLarge;
    const SecretBytes key = DeriveKey(header, passphrase);
    if (key.empty()) return EncodedFault::kNoMemory;
    const QByteArray text = FormatEncodedHeader(header);
    QByteArray ciphertext(static_cast<int>(plain.size()) + kTagBytes, '\0');
    crypto_aead_xchacha20poly1305_ietf_encrypt(reinterpret_cast<uint8_t*>(ciphertext.data()),
                                               nullptr, plain.data(), plain.size(), Bytes(text),
                                               static_cast<unsigned long long>(text.size()),
                                               nullptr, header.nonce.data(), key.data());
    file = text + HexLines(ciphertext);
    return EncodedFault::kNone;
}

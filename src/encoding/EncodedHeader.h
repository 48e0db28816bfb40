// The lines of an encoded file before its ciphertext: magic and version, the cost of the
// key derivation, the salt and the nonce. docs/ENCODED-SOURCES.md has the format. Any
// thread.
#pragma once

#include <QByteArray>
#include <array>
#include <cstdint>

constexpr int kSaltBytes = 16;   // of Argon2id (RFC 9106)
constexpr int kNonceBytes = 24;  // of XChaCha20-Poly1305

// The cost of a file that is written here: about a second on a small desktop.
constexpr uint32_t kUsualPasses = 3;
constexpr uint32_t kUsualMemoryKib = 256 * 1024;

// What a file may ask for. Deriving a key stops the whole program, so a hostile file must
// not choose for how long, nor take all memory.
constexpr uint32_t kMostPasses = 8;
constexpr uint32_t kLeastMemoryKib = 8;
constexpr uint32_t kMostMemoryKib = 512 * 1024;

struct EncodedHeader {
    uint32_t passes = kUsualPasses;        // 1 to kMostPasses
    uint32_t memoryKib = kUsualMemoryKib;  // kLeastMemoryKib to kMostMemoryKib, in 1024 bytes
    std::array<uint8_t, kSaltBytes> salt = {};
    std::array<uint8_t, kNonceBytes> nonce = {};
};

// What can be wrong with an encoded file. kNone: nothing.
enum class EncodedFault { kNone, kUnknown, kDamaged, kTooCostly, kTooLarge, kRefused, kNoMemory };

// The usual cost, and a salt and a nonce that no other file has.
EncodedHeader NewEncodedHeader();

// The four lines, each with its LF.
QByteArray FormatEncodedHeader(const EncodedHeader& header);

// Reads the lines at the start of `file`; `length` is then their size in bytes. They are
// taken in exactly the form that FormatEncodedHeader gives them, and in no other.
EncodedFault ReadEncodedHeader(const QByteArray& file, EncodedHeader& header, int& length);

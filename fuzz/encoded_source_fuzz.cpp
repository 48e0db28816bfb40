// Any bytes as an encoded file. What is taken apart must be, put together again, the same
// bytes; and nothing opens under a passphrase that was not used to write it.
#include "encoding/EncodedSource.h"

namespace {

constexpr uint32_t kQuickKib = 64;  // a derivation for each input that gets so far

void Require(bool holds) {
    if (!holds) abort();
}

void TryFile(const QByteArray& file) {
    EncodedSource source;
    if (ParseEncodedSource(file, source) != EncodedFault::kNone) return;
    const QByteArray digits = source.ciphertext.toHex();
    Require(FormatEncodedHeader(source.header) == source.headerText);
    Require(file.mid(source.headerText.size()).replace("\n", "") == digits);
    const SecretBytes passphrase = {'f', 'u', 'z', 'z'};
    SecretBytes opened, plain(file.begin(), file.end());
    if (source.header.memoryKib <= kQuickKib)
        Require(OpenEncodedSource(source, passphrase, opened) != EncodedFault::kNone);
    // The file as a writer of the same header and text would have it.
    QByteArray sealed;
    source.header.passes = 1;
    source.header.memoryKib = kLeastMemoryKib;
    Require(SealEncodedSource(source.header, passphrase, plain, sealed) == EncodedFault::kNone);
    Require(ParseEncodedSource(sealed, source) == EncodedFault::kNone);
    Require(OpenEncodedSource(source, passphrase, opened) == EncodedFault::kNone);
    Require(opened == plain);
}

}  // namespace

// Once as a file, once as what stands behind a good header.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray file(reinterpret_cast<const char*>(data), static_cast<int>(size));
    TryFile(file);
    EncodedHeader header;
    header.passes = 1;
    header.memoryKib = kLeastMemoryKib;
    TryFile(FormatEncodedHeader(header) + file);
    return 0;
}

// Any bytes as an encoded file. What is taken apart must be, put together again, the same
// bytes; and nothing opens under a passphrase that was not used to write it.
#include <cstdlib>

#include "encoding/EncodedSource.h"

namespace {

constexpr uint32_t kQuickKib = 64;  // a derivation for each input that gets so far

// The file as a writer of the same header and text would have it.
bool SealsToItself(EncodedHeader header, const SecretBytes& passphrase, const SecretBytes& plain) {
    header.passes = 1;
    header.memoryKib = kLeastMemoryKib;
    QByteArray file;
    EncodedSource source;
    SecretBytes opened;
    return SealEncodedSource(header, passphrase, plain, file) == EncodedFault::kNone &&
           ParseEncodedSource(file, source) == EncodedFault::kNone &&
           OpenEncodedSource(source, passphrase, opened) == EncodedFault::kNone && opened == plain;
}

void TryFile(const QByteArray& file) {
    EncodedSource source;
    if (ParseEncodedSource(file, source) != EncodedFault::kNone) return;
    const QByteArray digits = source.ciphertext.toHex();
    QByteArray body = file.mid(source.headerText.size());
    if (FormatEncodedHeader(source.header) != source.headerText) abort();
    if (body.replace("\n", "") != digits) abort();
    const SecretBytes passphrase = {'f', 'u', 'z', 'z'};
    if (!SealsToItself(source.header, passphrase, SecretBytes(file.begin(), file.end()))) abort();
    if (source.header.memoryKib > kQuickKib) return;
    SecretBytes plain;
    if (OpenEncodedSource(source, passphrase, plain) == EncodedFault::kNone) abort();
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

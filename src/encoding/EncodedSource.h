// A source enciphered under a passphrase, as the text of a `.bae` file: Argon2id makes the
// key, XChaCha20-Poly1305 enciphers, and all that stands before the ciphertext is
// authenticated with it. docs/ENCODED-SOURCES.md has the format and test vectors. Keys are
// wiped; the caller wipes what it holds. Any thread, but a derivation takes up to seconds
// and up to kMostMemoryKib of memory.
#pragma once

#include <QByteArray>

#include "encoding/EncodedHeader.h"
#include "encoding/SecretBytes.h"

constexpr int kLargestEncodedText = 16 * 1024 * 1024;  // bytes of plain text

struct EncodedSource {
    EncodedHeader header;
    QByteArray headerText;  // as it stood in the file: what is authenticated
    QByteArray ciphertext;  // with the tag of 16 bytes at its end
};

// Takes a file apart without a key, so that a spoilt one is told before anybody is asked
// for a passphrase. Every byte of it is looked at: there is one text for one content.
EncodedFault ParseEncodedSource(const QByteArray& file, EncodedSource& source);

// Deciphers. `plain` is empty unless kNone is given. kRefused: the passphrase is not the
// one, or the file was changed; there is no telling which. kNoMemory: no key could be made.
EncodedFault OpenEncodedSource(const EncodedSource& source, const SecretBytes& passphrase,
                               SecretBytes& plain);

// The text of a file. `header` is one that NewEncodedHeader gave; the same header must
// never serve for two sources. kTooLarge for more than kLargestEncodedText.
EncodedFault SealEncodedSource(const EncodedHeader& header, const SecretBytes& passphrase,
                               const SecretBytes& plain, QByteArray& file);

// Bytes that are overwritten before their memory is given back: passphrases, keys and the
// plain text of encoded sources. Any thread.
#pragma once

#include <sodium.h>

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

template <typename T>
struct WipingAllocator : std::allocator<T> {
    // The base would otherwise hand its own, plain deallocate to containers.
    template <typename U>
    struct rebind {
        using other = WipingAllocator<U>;
    };
    void deallocate(T* block, size_t count) {
        sodium_memzero(block, count * sizeof(T));
        std::allocator<T>::deallocate(block, count);
    }
};

using SecretBytes = std::vector<uint8_t, WipingAllocator<uint8_t>>;

// Overwrites a text and empties it. A text that others still share cannot be overwritten
// and is only let go: wipe the last holder.
void WipeText(QString& text);

// Puts another text in its place and overwrites the one of before.
void ReplaceText(QString& text, QString by);

// A passphrase as the key is derived from it: UTF-8 of its composed form (NFC), so that
// it does not matter how a keyboard makes an accented letter. `text` is wiped.
SecretBytes TakePassphrase(QString& text);

// Text of one character a byte, both ways. Characters above 255 are cut to 8 bits.
SecretBytes SecretFromText(QStringView text);
QString TextFromSecret(const SecretBytes& bytes);

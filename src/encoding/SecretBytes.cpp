#include "encoding/SecretBytes.h"

namespace {

// The library wants this before any other call, and bytes are wiped all over the program.
// Whether it went well is seen where a key is made.
[[maybe_unused]] const int readiness = sodium_init();

}  // namespace

// As far as its memory reaches: a text that became shorter has its old end behind it.
void WipeText(QString& text) {
    if (text.isDetached()) {
        sodium_memzero(text.data(), static_cast<size_t>(text.capacity()) * sizeof(QChar));
    }
    text.clear();
}

void ReplaceText(QString& text, QString by) {
    WipeText(text);
    text = by;
}

SecretBytes TakePassphrase(QString& text) {
    QString composed = text.normalized(QString::NormalizationForm_C);
    WipeText(text);
    QByteArray bytes = composed.toUtf8();
    WipeText(composed);
    const SecretBytes secret(bytes.begin(), bytes.end());
    sodium_memzero(bytes.data(), static_cast<size_t>(bytes.size()));
    return secret;
}

SecretBytes SecretFromText(QStringView text) {
    SecretBytes bytes;
    bytes.reserve(static_cast<size_t>(text.size()));
    for (const QChar character : text) bytes.push_back(static_cast<uint8_t>(character.unicode()));
    return bytes;
}

QString TextFromSecret(const SecretBytes& bytes) {
    return QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()),
                               static_cast<int>(bytes.size()));
}

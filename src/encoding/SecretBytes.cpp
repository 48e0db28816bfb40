#include "encoding/SecretBytes.h"

void WipeText(QString& text) {
    if (text.isDetached()) {
        sodium_memzero(text.data(), static_cast<size_t>(text.size()) * sizeof(QChar));
    }
    text.clear();
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

SecretBytes SecretFromText(const QString& text) {
    SecretBytes bytes;
    bytes.reserve(static_cast<size_t>(text.size()));
    for (const QChar character : text) bytes.push_back(static_cast<uint8_t>(character.unicode()));
    return bytes;
}

QString TextFromSecret(const SecretBytes& bytes) {
    return QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()),
                               static_cast<int>(bytes.size()));
}

#include "editor/SourceText.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>
#include <algorithm>

namespace {

// True, and the text, for bytes that are UTF-8 and more than ASCII.
bool ReadUtf8(const QByteArray& bytes, QString& text) {
    if (std::none_of(bytes.begin(), bytes.end(), [](char c) { return c & 0x80; })) return false;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);  // keeps a byte-order mark
    QTextCodec* codec = QTextCodec::codecForName("UTF-8");
    text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

bool IsWide(QChar c) {
    return c.unicode() > 255;
}

}  // namespace

SourceText SourceFromBytes(const QByteArray& bytes) {
    SourceText source;
    source.utf8 = ReadUtf8(bytes, source.text);
    if (!source.utf8) source.text = QString::fromLatin1(bytes);
    return source;
}

QByteArray FileBytes(const QByteArray& text, bool utf8) {
    const QString characters = QString::fromUtf8(text);
    const bool wide = std::any_of(characters.cbegin(), characters.cend(), IsWide);
    return utf8 || wide ? text : characters.toLatin1();
}

QByteArray DigestOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QByteArray FileDigest(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return QByteArray();
    return DigestOf(file.read(kLargestText + 1));
}

QString ReadSource(const QString& path, SourceText& source) {
    const QFileInfo facts(path);
    if (facts.exists() && !facts.isFile()) return path + " is not a file.";
    QFile file(path);
    QByteArray bytes;
    if (facts.exists()) {
        if (file.open(QIODevice::ReadOnly)) bytes = file.read(kLargestText + 1);
        if (file.error() != QFile::NoError) {
            return path + " cannot be read: " + file.errorString() + '.';
        }
    }
    if (bytes.size() > kLargestText) return path + " is larger than 16 MB.";
    if (bytes.contains('\0')) return path + " is not a text.";
    source = SourceFromBytes(bytes);
    if (facts.exists()) source.digest = DigestOf(bytes);
    return QString();
}

// Unbuffered, because commit() does not notice a buffer that reaches a full disk in part; and a
// write in part is no error to the library.
QString WriteWhole(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    const bool open = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    const qint64 written = open ? file.write(bytes) : -1;
    if (written == bytes.size() && file.commit()) return QString();
    const bool full = written >= 0 && written < bytes.size();
    return path + " cannot be written: " + (full ? "the disk is full" : file.errorString()) + '.';
}

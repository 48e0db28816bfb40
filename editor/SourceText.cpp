#include "editor/SourceText.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>
#include <algorithm>

namespace {

// What the text widget takes for the end of a line or of a frame besides LF.
bool IsOddLineEnd(QChar c) {
    return c == QChar(0x2029) || c == QChar(0xFDD0) || c == QChar(0xFDD1);
}

// True, and the text, for bytes that are UTF-8 and more than ASCII.
bool ReadUtf8(const QByteArray& bytes, QString& text) {
    if (std::none_of(bytes.begin(), bytes.end(), [](char c) { return c & 0x80; })) return false;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);  // keeps a byte-order mark
    QTextCodec* codec = QTextCodec::codecForName("UTF-8");
    text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0 &&
           std::none_of(text.cbegin(), text.cend(), IsOddLineEnd);
}

bool IsWide(QChar c) {
    return c.unicode() > 255;
}

}  // namespace

SourceText SourceFromBytes(const QByteArray& bytes) {
    SourceText source;
    source.utf8 = ReadUtf8(bytes, source.text);
    if (!source.utf8) source.text = QString::fromLatin1(bytes);
    const int end = source.text.indexOf('\n');
    source.crLf = end > 0 && source.text[end - 1] == '\r';
    source.text.replace("\r\n", "\n").replace('\r', '\n');
    return source;
}

QByteArray BytesFromSource(const SourceText& source) {
    QString text = source.text;
    if (source.crLf) text.replace('\n', "\r\n");
    const bool wide = std::any_of(text.cbegin(), text.cend(), IsWide);
    return source.utf8 || wide ? text.toUtf8() : text.toLatin1();
}

QString ReadSource(const QString& path, SourceText& source) {
    const QFileInfo facts(path);
    if (facts.exists() && !facts.isFile()) return path + " is not a file.";
    QFile file(path);
    QByteArray bytes;
    if (facts.exists()) {
        if (!file.open(QIODevice::ReadOnly)) return path + " cannot be read.";
        bytes = file.read(kLargestText + 1);
    }
    if (bytes.size() > kLargestText) return path + " is larger than 16 MB.";
    if (bytes.contains('\0')) return path + " is not a text.";
    source = SourceFromBytes(bytes);
    return QString();
}

// Unbuffered, because commit() does not notice a buffer that reaches a full disk in part.
QString WriteSource(const QString& path, const SourceText& source) {
    const QByteArray bytes = BytesFromSource(source);
    QSaveFile file(path);
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         file.write(bytes) == bytes.size() && file.commit();
    return written ? QString() : path + " cannot be written.";
}

#include "base/TextRules.h"

#include <cstdlib>
#include <ctime>

int64_t TextToInteger(const QString& text) {
    int start = 0;
    while (start < text.size() && (text[start] == ' ' || text[start] == '\t')) ++start;
    const bool hexadecimal = start < text.size() && text[start] == '$';
    // strtol(3) looks at no more than sign, prefix and digits; the cap keeps a hostile
    // text of any length cheap and is far beyond 64 bits in either base.
    constexpr int kLongestNumber = 4096;
    const QByteArray digits = text.mid(start + (hexadecimal ? 1 : 0), kLongestNumber).toLatin1();
    return strtoll(digits.constData(), nullptr, hexadecimal ? 16 : 10);
}

int32_t TextToInteger32(const QString& text) {
    return static_cast<int32_t>(TextToInteger(text));
}

QString FieldOf(const QString& text, int index, QChar separator) {
    if (index < 1) return QString();
    int start = 0;
    for (int field = 1; field < index; ++field) {
        const int next = text.indexOf(separator, start);
        if (next < 0) return QString();
        start = next + 1;
    }
    const int end = text.indexOf(separator, start);
    return end < 0 ? text.mid(start) : text.mid(start, end - start);
}

namespace {

template <typename Predicate>
QString TrimWhere(const QString& text, Predicate cut) {
    int first = 0;
    int last = text.size();
    while (first < last && cut(text[first])) ++first;
    while (last > first && cut(text[last - 1])) --last;
    return text.mid(first, last - first);
}

}  // namespace

QString TrimBlanks(const QString& text) {
    return TrimWhere(text, [](QChar c) { return c == ' '; });
}

QString TrimBlanksAndTabs(const QString& text) {
    return TrimWhere(text, [](QChar c) { return c == ' ' || c == '\t'; });
}

QString NamePart(const QString& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

QString FolderPart(const QString& path) {
    return path.left(path.lastIndexOf('/') + 1);
}

QString ExtensionPart(const QString& path) {
    const QString name = NamePart(path);
    const int dot = name.lastIndexOf('.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString ReplaceAnyCase(QString text, const QString& before, const QString& after) {
    return text.replace(before, after, Qt::CaseInsensitive);
}

QString ByteText(int value) {
    return QString(QChar(static_cast<ushort>(value)));
}

QString FormatDate(const QString& mask, int64_t seconds) {
    const time_t moment = static_cast<time_t>(seconds);
    tm civil = {};
    gmtime_r(&moment, &civil);
    const auto padded = [](int value, int width) {
        return QString::number(value).rightJustified(width, '0');
    };
    const int year = civil.tm_year + 1900;
    const struct {
        const char* token;
        QString value;
    } tokens[] = {
        {"%yyyy", padded(year, 4)},           {"%yy", padded(year % 100, 2)},
        {"%mm", padded(civil.tm_mon + 1, 2)}, {"%dd", padded(civil.tm_mday, 2)},
        {"%hh", padded(civil.tm_hour, 2)},    {"%ii", padded(civil.tm_min, 2)},
        {"%ss", padded(civil.tm_sec, 2)},
    };
    QString text = mask;
    for (const auto& token : tokens) text.replace(QLatin1String(token.token), token.value);
    return text;
}

QString FormatColour(int64_t value) {
    const QString digits = QString::number(static_cast<uint64_t>(value), 16).toUpper();
    return "$" + digits.right(6).rightJustified(6, '0');
}

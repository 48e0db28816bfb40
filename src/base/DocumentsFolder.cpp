#include "base/DocumentsFolder.h"

#include <QStringList>
#include <cstdlib>

#include "base/BoundedFile.h"
#include "base/TextRules.h"

namespace {

constexpr char kKey[] = "XDG_DOCUMENTS_DIR=";
constexpr char kHomeWord[] = "$HOME/";
constexpr int kHomeLength = 5;  // of the word without the separator

QString WithSeparator(const QString& folder) {
    return folder.endsWith('/') ? folder : folder + '/';
}

// The text between the double quotes of a shell assignment, as xdg-user-dirs-update(1)
// writes it: a backslash takes the next character as it stands.
QString QuotedValue(const QString& text) {
    QString value;
    if (!text.startsWith('"')) return value;
    for (int i = 1; i < text.size() && text[i] != '"'; ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) ++i;
        value += text[i];
    }
    return value;
}

// The last assignment wins, as in the shell. A comment line does not begin with the key.
QString DocumentsValue(const QString& fileText) {
    QString value;
    for (const QString& line : fileText.split('\n')) {
        const QString trimmed = TrimBlanksAndTabs(line);
        if (trimmed.startsWith(kKey)) value = QuotedValue(trimmed.mid(sizeof kKey - 1));
    }
    return value;
}

}  // namespace

QString DocumentsFolder() {
    const char* variable = getenv("HOME");
    if (!variable || !*variable) return QString();
    const QString home = QString::fromUtf8(variable);
    const QByteArray file =
        ReadFileUpTo(WithSeparator(home) + ".config/user-dirs.dirs", kLargestUserDirs).bytes;
    QString value = DocumentsValue(QString::fromUtf8(file));
    if (WithSeparator(value).startsWith(kHomeWord)) value.replace(0, kHomeLength, home);
    return WithSeparator(value.startsWith('/') ? value : home);
}

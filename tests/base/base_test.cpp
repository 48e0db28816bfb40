// The folder of documents, and the small rules of text.
#include <gtest/gtest.h>

#include <QDir>

#include "base/DocumentsFolder.h"
#include "base/LineEnding.h"
#include "base/TextRules.h"
#include "tests/support/ScratchFolder.h"

namespace {

TEST(DocumentsFolder, FollowsTheDesktopsFile) {
    const ScratchFolder home;
    const QString path = home.folder.path() + "/";
    setenv("HOME", home.folder.path().toUtf8().constData(), 1);
    EXPECT_EQ(DocumentsFolder(), path);  // no such file
    QDir().mkdir(".config");
    const std::pair<const char*, QString> rows[] = {
        {"XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n", path + "Papers/"},
        {"#XDG_DOCUMENTS_DIR=\"/no\"\nXDG_DOWNLOAD_DIR=\"/no\"\n", path},
        {"XDG_DOCUMENTS_DIR=\"/a\"\n \tXDG_DOCUMENTS_DIR=\"/b/\" # now\n", "/b/"},
        {"XDG_DOCUMENTS_DIR=\"$HOMEWARD/x\"", path},  // relative: no value
        {"XDG_DOCUMENTS_DIR=", path},
        {"XDG_DOCUMENTS_DIR=\"/a \\\"q\\\" \\$\xC3\xA4", "/a \"q\" $\u00E4/"},
    };
    for (const auto& [text, folder] : rows) {
        ScratchFolder::Put(".config/user-dirs.dirs", text);
        EXPECT_EQ(DocumentsFolder(), folder) << text;
    }
    unsetenv("HOME");
    EXPECT_EQ(DocumentsFolder(), "");
}

TEST(TextRules, IntegersFollowStrtolAndTheDollarPrefix) {
    QStringList values;
    for (const char* text : {"", "x12", "12x", "  -7 ", "$FF", "\t $0000CD", "$", "$zz", "12.9",
                             "+5", "99999999999999999999", "-99999999999999999999"})
        values += QString::number(TextToInteger(text));
    EXPECT_EQ(values.join(' '),
              "0 0 12 -7 255 205 0 0 12 5 9223372036854775807 -9223372036854775808");
    EXPECT_EQ(TextToInteger32("4294967297"), 1);
    EXPECT_EQ(TextToInteger(QString(1000000, '9')), INT64_MAX);
}

TEST(TextRules, PartsOfTexts) {
    const QString fields = "a|b||d";
    QString parts = TrimBlanks("   ") + ExtensionPart("a.b/.c") + ExtensionPart("a.b/c");
    for (const int index : {0, 2, 3, 5}) parts += FieldOf(fields, index, '|') + '/';
    EXPECT_EQ(parts + TrimBlanks("  \ta b\t  ") + '/' + TrimBlanksAndTabs(" \ta b\t "),
              "c/b///\ta b\t/a b");
    SetLineEnding("lf");
    EXPECT_EQ(lineEnding.name + lineEnding.bytes, "lf\r\n");
}

}  // namespace

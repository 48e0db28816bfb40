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
    const std::pair<const char*, int64_t> rows[] = {{"", 0},
                                                    {"x12", 0},
                                                    {"12x", 12},
                                                    {"  -7 ", -7},
                                                    {"$FF", 255},
                                                    {"\t $0000CD", 205},
                                                    {"$", 0},
                                                    {"$zz", 0},
                                                    {"12.9", 12},
                                                    {"+5", 5},
                                                    {"99999999999999999999", INT64_MAX},
                                                    {"-99999999999999999999", INT64_MIN}};
    for (const auto& [text, value] : rows) EXPECT_EQ(TextToInteger(text), value) << text;
    EXPECT_EQ(TextToInteger32("4294967297"), 1);
    EXPECT_EQ(TextToInteger(QString(1000000, '9')), INT64_MAX);
}

TEST(TextRules, PartsOfTexts) {
    const QStringList parts = {
        FieldOf("a|b||d", 2, '|'), FieldOf("a|b||d", 3, '|'), FieldOf("a|b||d", 5, '|'),
        FieldOf("a|b", 0, '|'),    TrimBlanks("  \ta b\t  "), TrimBlanksAndTabs(" \ta b\t "),
        TrimBlanks("   "),         ExtensionPart("a.b/.c"),   ExtensionPart("a.b/c")};
    EXPECT_EQ(parts.join('/'), "b////\ta b\t/a b//c/");
    SetLineEnding("lf");
    EXPECT_EQ(lineEnding.name + lineEnding.bytes, "lf\r\n");
}

}  // namespace

// The folder of documents, the small rules of text, and arrived bytes as text.
#include <gtest/gtest.h>

#include <QDir>

#include "base/DecodeLinkText.h"
#include "base/DocumentsFolder.h"
#include "base/LineEnding.h"
#include "base/Pacing.h"
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
    setenv("TZ", "EST+5", 1);
    tzset();
    EXPECT_NEAR(WallClock() - time(nullptr), -5 * 3600, 2);
}

// From a block of exactly this size, so that a sanitizer sees a read behind it.
QString Decode(const std::string& bytes) {
    const std::vector<uint8_t> block(bytes.begin(), bytes.end());
    return DecodeLinkText(block.data(), static_cast<int64_t>(block.size()));
}

TEST(Decode, EveryByteAsLeadAndAsContinuation) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string self(1, static_cast<char>(byte));
        const bool follows = byte >= 0x80 && byte < 0xC0;
        QString context = "ab" + QString(QChar(byte)) + "cd";
        if (byte == 0) context = "ab";      // the text ends
        if (byte >= 0xC0) context = "abd";  // the character takes the "c" with it
        if (follows || byte >= 0xF8) context = "";
        EXPECT_EQ(Decode("ab" + self + "cd"), context) << byte;
        const QString wide = follows ? QString(QChar(0x2180 + byte % 64)) : QString();
        EXPECT_EQ(Decode("a\xE2\x86" + self + "x"), "a" + wide + (byte ? "x" : "")) << byte;
    }
}

// At every place of the fast path: what stands before a cut character stays, and the next chunk
// vanishes whole.
TEST(Decode, LimitsBrokenCharactersAndSplits) {
    const std::pair<const char*, QString> cases[] = {
        {"\xDF\xBF\xEF\xBF\xBF", QString(QChar(0x7FF)) + QChar(0xFFFF)},
        {"\xF4\x8F\xBF\xBF", QString(QChar(0xDBFF)) + QChar(0xDFFF)},
        {"a\xF4\x90\x80\x80\xFF", "a"},  // above 0x10FFFF: nothing behind it counts
        {"a\xF7\xBF\x62\x63", "ac"},     // broken off before it grew that far
        {"\xC3\xC3\xA9", ""},            // a continuation left over
        {"\xC1\x81\xED\xA0\x80", "A" + QString(QChar(0xD800))},  // overlong, lone surrogate
    };
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Decode(bytes), text) << bytes;
    EXPECT_EQ(DecodeLinkText("abc", -1), QString());
    for (int place = 0; place < 20; ++place) {
        const QString before(place, 'x');
        const std::string bytes = (before + "→" + QString(19 - place, 'y')).toStdString();
        EXPECT_EQ(Decode(bytes), QString::fromStdString(bytes));
        for (const int cut : {place + 1, place + 2})
            EXPECT_EQ(Decode(bytes.substr(0, cut)) + Decode(bytes.substr(cut)), before);
    }
}

}  // namespace

// From a file's bytes to entries and back.
#include "shell/PreferencesText.h"

#include <gtest/gtest.h>

#include <QTextCodec>
#include <string>

namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";

// Entries as one text: "[group] ;comment key=value", each in angle brackets.
std::string Read(const QByteArray& bytes) {
    std::vector<PreferenceEntry> entries;
    EXPECT_TRUE(ParsePreferences(DecodePreferences(bytes), &entries));
    QString shown;
    for (const PreferenceEntry& entry : entries) {
        if (entry.kind == PreferenceKind::kGroup) shown += "<[" + entry.name + "]>";
        if (entry.kind == PreferenceKind::kComment) shown += "<;" + entry.name + ">";
        if (entry.kind == PreferenceKind::kKey) shown += "<" + entry.name + "=" + entry.value + ">";
    }
    return shown.toStdString();
}

TEST(PreferencesText, LinesBecomeEntries) {
    const std::pair<std::string, std::string> rows[] = {
        {"\n\r\n \t \n", ""},
        {"[A]\nk = v\n", "<[A]><k=v>"},
        {"[A]\rk = v\r\nl=w", "<[A]><k=v><l=w>"},                 // CR, CR LF and no end
        {" \t[ A ] tail\n\t k \t=\t v \t\n", "<[ A ]><k=v \t>"},  // a value keeps its tail
        {"[A\nk=v", "<[A]><k=v>"},
        {"; one\n;two\n;  three\n;\n", "<;one><;two><; three><;>"},
        {"k=a=b;c\n=v\n==\n", "<k=a=b;c><=v><==>"},
        {"lonely\nnext = 1\nafter = 2", "<lonely=next = 1><after=2>"},
        {"lonely\r\nnext=1", "<lonely=><next=1>"},  // the LF ends the value at once
        {"lonely", "<lonely=>"},
        {std::string("k=a\0b\n", 6), std::string("<k=a\0b>", 7)},
    };
    for (const auto& [text, entries] : rows)
        EXPECT_EQ(Read(QByteArray::fromStdString(text)), entries);
}

TEST(PreferencesText, BytesBecomeTextByMarkThenByValidity) {
    EXPECT_EQ(Read(QByteArray(kMark) + "k=\xC3\xA4"), "<k=\u00E4>");
    EXPECT_EQ(Read(QByteArray(kMark) + "k=\xE4z"), "<k=\uFFFDz>");  // the mark decides
    EXPECT_EQ(Read("k=\xC3\xA4"), "<k=\u00E4>");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    EXPECT_EQ(Read("k=\xE4z"), "<k=\u00E4z>");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-15"));
    EXPECT_EQ(Read("k=\xA4"), "<k=\u20AC>");
}

TEST(PreferencesText, LayoutIsExact) {
    using Kind = PreferenceKind;
    const std::vector<PreferenceEntry> entries = {
        {Kind::kComment, "top", ""}, {Kind::kGroup, "A", ""}, {Kind::kKey, "k", "v"},
        {Kind::kComment, "", ""},    {Kind::kGroup, "B", ""}, {Kind::kKey, "l", "\u00E4\r\n[C]"}};
    EXPECT_EQ(FormatPreferences(entries, kPreferenceGroupSpace),
              QByteArray(kMark) +
                  "\n; top\n[A]\nk = v\n; \n\n[B]\nl = \xC3\xA4  [C]\n");  // no forged group
    EXPECT_EQ(FormatPreferences(entries, kPreferenceTightKeys),
              QByteArray(kMark) + "\n; top\n[A]\nk=v\n; \n[B]\nl=\xC3\xA4  [C]\n");
    EXPECT_EQ(FormatPreferences({}, kPreferenceGroupSpace), QByteArray(kMark) + "\n");
}

}  // namespace

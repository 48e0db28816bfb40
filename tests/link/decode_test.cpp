// Arrived bytes as text: the rules for each byte value, alone, in context and at every
// place of the fast path for ASCII.
#include <gtest/gtest.h>

#include <vector>

#include "base/DecodeLinkText.h"

namespace {

// From a block of exactly this size, so that a sanitizer sees a read behind it.
QString Decode(const std::string& bytes) {
    const std::vector<uint8_t> block(bytes.begin(), bytes.end());
    return DecodeLinkText(block.data(), static_cast<int64_t>(block.size()));
}

TEST(Decode, EveryByteAsLeadAndAsContinuation) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string self(1, static_cast<char>(byte));
        const bool follows = byte >= 0x80 && byte < 0xC0;
        const QString ascii = byte && byte < 0x80 ? QString(QChar(byte)) : QString();
        QString context = "ab" + ascii + "cd";
        if (byte == 0) context = "ab";      // the text ends
        if (byte >= 0xC0) context = "abd";  // the character takes the "c" with it
        if (follows || byte >= 0xF8) context = "";
        EXPECT_EQ(Decode(self), ascii) << byte;
        EXPECT_EQ(Decode("ab" + self + "cd"), context) << byte;
        const QString wide = follows ? QString(QChar(0x2180 + byte % 64)) : QString();
        EXPECT_EQ(Decode("a\xE2\x86" + self + "x"), "a" + wide + (byte ? "x" : "")) << byte;
    }
}

// At every place: what stands before a cut character stays, and the next chunk vanishes whole.
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
        for (const int cut : {place + 1, place + 2}) {
            EXPECT_EQ(Decode(bytes.substr(0, cut)), before);
            EXPECT_EQ(Decode(bytes.substr(cut)), QString());
        }
    }
}

}  // namespace

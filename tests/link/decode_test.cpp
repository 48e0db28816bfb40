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
        const bool refused = (byte >= 0x80 && byte < 0xC0) || byte >= 0xF8;
        const QString ascii = byte && byte < 0x80 ? QString(QChar(byte)) : QString();
        EXPECT_EQ(Decode(self), ascii) << byte;
        // A multi-byte lead takes the "c" with it; a 0 ends the text.
        EXPECT_EQ(Decode("ab" + self + "cd"), refused        ? QString()
                                              : byte == 0    ? "ab"
                                              : byte >= 0xC0 ? "abd"
                                                             : "ab" + ascii + "cd")
            << byte;
        EXPECT_EQ(Decode(std::string("ab\0", 3) + self), QString("ab")) << byte;

        const bool fits = byte >= 0x80 && byte < 0xC0;
        const QString wide = fits ? QString(QChar(0x2180 + byte % 64)) : QString();
        EXPECT_EQ(Decode("a\xE2\x86" + self + "x"), "a" + wide + (byte ? "x" : "")) << byte;
    }
}

TEST(Decode, Cases) {
    const struct {
        const char* bytes;
        QString text;
    } cases[] = {
        {"\xDF\xBF\xEF\xBF\xBF", QString(QChar(0x7FF)) + QChar(0xFFFF)},
        {"\xF0\x90\x80\x80", QString(QChar(0xD800)) + QChar(0xDC00)},
        {"\xF4\x8F\xBF\xBF", QString(QChar(0xDBFF)) + QChar(0xDFFF)},
        {"a\xF4\x90\x80\x80\xFF", "a"},   // above 0x10FFFF: nothing behind it counts
        {"a\xF7\xBF\x62\x63", "ac"},      // broken off before it grew that far
        {"\xC3\xC3\x62", "b"},            // a lead in the place of a continuation
        {"\xC3\xC3\xA9", ""},             // and the continuation left over
        {"\xC3\xA9\x62\xA9", ""},         // good text in front is no help
        {"\xC1\x81", "A"},                // overlong
        {"\xED\xA0\x80", QChar(0xD800)},  // a lone surrogate
    };
    for (const auto& each : cases) EXPECT_EQ(Decode(each.bytes), each.text) << each.bytes;
    EXPECT_EQ(DecodeLinkText("abc", 0), QString());
    EXPECT_EQ(DecodeLinkText("abc", -1), QString());
}

// One character of each size at every place of a text, and cut at every byte: what
// stands before the cut character stays, and the next chunk vanishes whole.
TEST(Decode, EveryPlaceAndEverySplit) {
    for (const QString& wide : {QString("é"), QString("→"), QString::fromUcs4(U"\U0001F600")}) {
        for (int place = 0; place < 20; ++place) {
            const QString text = QString(place, 'x') + wide + QString(19 - place, 'y');
            const std::string bytes = text.toStdString();
            EXPECT_EQ(Decode(bytes), text);
            for (int cut = place + 1; cut < place + wide.toUtf8().size(); ++cut) {
                EXPECT_EQ(Decode(bytes.substr(0, cut)), QString(place, 'x'));
                EXPECT_EQ(Decode(bytes.substr(cut)), QString());
            }
        }
    }
}

}  // namespace

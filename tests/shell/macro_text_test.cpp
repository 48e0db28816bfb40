#include "shell/MacroText.h"

#include <gtest/gtest.h>

#include "tests/support/VirtualClock.h"

namespace {

TEST(MacroText, Expands) {
    VirtualClock clock;
    const std::pair<const char*, QString> rows[] = {
        {"", ""},
        {"abc", "ab"},  // a plain last character is dropped
        {"\\", ""},
        {"a\\r", "a"},  // and so is a code of one letter
        {"\\r.", "\r"},
        {"\\c\\C\\b\\B\\t\\T\\n\\N\\v\\V\\f\\F\\r\\R\\e\\E.",
         "\3\3\b\b\t\t\n\n\v\v\f\f\r\r\x1b\x1b"},
        {"\\q\\Q\\\\\\z\\|.", "\"\"\\z|"},
        {"\\027[12~.", "\x1b[12~"},
        {"\\300", QString(QChar(44))},  // one byte: 300 less 256
        {"\\1a2z.", "\1z"},             // three characters are taken, the number ends earlier
        {"\\7", ""},
        {"\\XfFz", QString(QChar(255))},
        {"\\x4", "\4"},
        {"\\d \\h.", "04/03/2026 05:06:07"},
        {"\u00E4\\\u00F6\u20AC.", "\u00E4\u00F6\u20AC"},
    };
    for (const auto& [text, expanded] : rows) EXPECT_EQ(ExpandMacroText(text), expanded) << text;
}

}  // namespace

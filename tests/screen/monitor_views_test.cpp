// The plain and the hex monitor: which byte stands in which cell, and what stays as it was.
#include "tests/screen/ScreenRig.h"

namespace {

void Dump(const std::string& bytes) {
    TerminalHexDump(bytes.data(), static_cast<int64_t>(bytes.size()));
}

TEST(MonitorViews, HexOfEveryByteInItsRow) {
    OpenScreenRig();
    StartCapture();
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    Dump(all + "ab");
    EXPECT_EQ(RowText(3),
              ".20.21.22.23.24.25.26.27...28.29.2A.2B.2C.2D.2E.2F.... !\"#$%&'..()*+,-./.");
    EXPECT_EQ(RowText(16) + RowText(2).substr(50),
              ".F0.F1.F2.F3.F4.F5.F6.F7...F8.F9.FA.FB.FC.FD.FE.FF...."
              "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7..\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF."
              ".......................");
    EXPECT_EQ(TakeCapture(), "");
    ClearTerminal(kTerminalCanvas);  // the row goes on all the same
    Dump("c");
    EXPECT_EQ(ScreenText(), std::string(7, '.') + "63" + std::string(47, '.') + "c. 58,1");
    Feed("\x1b[999;1H");
    Dump("0123456789abcd");
    EXPECT_EQ(RowText(50).substr(0, 5) + std::to_string(terminalScreen.topLine), ".64..1");
    SetTerminalSize(40, 10);
    ApplyTerminalSize();
    Dump("123456789abcdef");
    EXPECT_EQ(terminalScreen.cursorX, 40);  // held at the edge, whatever lies past it
}

TEST(MonitorViews, PlainTextLineByLine) {
    OpenScreenRig(20, 5);
    SetLineEnding("LF");  // no matter to this view
    const std::pair<std::string, const char*> cases[] = {
        {"a\r\nb\rc\n\r\nd", "a.|b.|c.||d. 2,5"},
        {"\x1b[7mX\a\t\b", "\x1b[7mX\a\t\b. 9,1"},
        {"\xC3\xA9\xFFx", " 1,1"},  // an impossible lead byte: the whole block
        {std::string("ab\xC3\0c", 5), "ab. 3,1"},
        {"1\n2\n3\n4\nfive\nsix\n", "3.|4.|five.|six. 1,5"},
    };
    for (const auto& [bytes, shown] : cases) {
        ClearTerminal(kTerminalCanvas);
        TerminalPrintRaw(bytes.data(), static_cast<int64_t>(bytes.size()));
        EXPECT_EQ(ScreenText(), shown);
    }
}

}  // namespace

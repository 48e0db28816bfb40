// The plain and the hex monitor: which byte stands in which cell, and what stays as it was.
#include <gtest/gtest.h>

#include "terminal/screen/MonitorViews.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/screen/ScreenRig.h"

namespace {

class MonitorTest : public testing::Test {
  protected:
    void SetUp() override { OpenScreenRig(); }
};

void Dump(const std::string& bytes) {
    TerminalHexDump(bytes.data(), static_cast<int64_t>(bytes.size()));
}

const TerminalCell& Cell(int column, int row) {
    return TerminalLineAt(terminalScreen.topLine + row)->cells[column];
}

// A pair of digits and a character for each of sixteen bytes, in columns from 1.
void ExpectByte(int byte, int k, int row, int attr = 0) {
    const QString digits = QString::number(byte, 16).toUpper().rightJustified(2, '0');
    const int gap = k < 8 ? 0 : 2;
    EXPECT_EQ(QChar(Cell(3 * k + 2 + gap, row).ch), digits[0]) << byte;
    EXPECT_EQ(QChar(Cell(3 * k + 3 + gap, row).ch), digits[1]) << byte;
    EXPECT_EQ(Cell(k + 55 + gap, row).ch, byte < 32 ? u'.' : byte) << byte;
    EXPECT_EQ(Cell(k + 55 + gap, row).attr, attr) << byte;
}

TEST_F(MonitorTest, HexPlaceOfEveryByte) {
    StartCapture();
    for (int byte = 0; byte < 256; ++byte) {
        Feed(byte % 7 ? "" : byte % 2 ? "\x1b[7m" : "\x1b[0m");  // both directions in a row
        Dump(std::string(1, static_cast<char>(byte)));
    }
    EXPECT_EQ(TakeCapture().remove("\x1b[7m").remove("\x1b[0m"), "");
    for (int byte = 0; byte < 256; ++byte)
        ExpectByte(byte, byte % 16, byte / 16 + 1, byte / 7 % 2 ? kAttributeInverse : 0);
    Feed("\x1b[0m");
    Dump("abc");
    ClearTerminal(kTerminalCanvas);  // the row goes on all the same
    Dump("d");
    ExpectByte('d', 3, 1);
    Feed("\x1b[999;1H");
    Dump("0123456789abc");
    EXPECT_EQ(terminalScreen.topLine, 1);
    ExpectByte('b', 15, terminalScreen.rows - 1);
    ExpectByte('c', 0, terminalScreen.rows);
    SetTerminalSize(40, 10);
    ApplyTerminalSize();
    Dump("123456789abcdef");
    EXPECT_EQ(terminalScreen.cursorX, 40);  // held at the edge, whatever lies past it
}

TEST_F(MonitorTest, PlainTextLineByLine) {
    SetLineEnding("LF");  // no matter to this view
    const struct {
        std::string bytes;
        std::vector<std::string> rows;
        int x;  // of the cursor, in the last of the rows
    } cases[] = {
        {"a\r\nb\rc\n\r\nd", {"a.", "b.", "c.", "", "d."}, 2},
        {"\x1b[7mX\a\t\b", {"\x1b[7mX\a\t\b."}, 9},
        {"\xC3\xA9\xFFx", {""}, 1},  // an impossible lead byte: the whole block
        {std::string("ab\xC3\0c", 5), {"ab."}, 3},
    };
    for (const auto& each : cases) {
        ClearTerminal(kTerminalCanvas);
        TerminalPrintRaw(each.bytes.data(), static_cast<int64_t>(each.bytes.size()));
        for (size_t i = 0; i < each.rows.size(); ++i)
            EXPECT_EQ(RowText(static_cast<int>(i) + 1), each.rows[i]) << each.bytes;
        EXPECT_EQ(terminalScreen.cursorX, each.x) << each.bytes;
        EXPECT_EQ(terminalScreen.cursorY, each.rows.size()) << each.bytes;
    }
    Feed("\x1b[999;5H");
    TerminalPrintRaw("one\ntwo\n", 8);
    EXPECT_EQ(RowText(terminalScreen.rows - 2), "....one.");
    EXPECT_EQ(RowText(terminalScreen.rows - 1), "two.");
    EXPECT_EQ(terminalScreen.cursorX, 1);
}

}  // namespace

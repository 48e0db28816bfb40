// The VT interpreter as scripts: these bytes, this screen.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/screen/ScreenRig.h"
#include "tests/support/Chosen.h"

namespace {

using std::string;

// Fresh 20 by 5, parser in ground state.
void StartOver() {
    Feed("\x1b[0m\x1b[1;1H\x1b[0m");
    SetTerminalSize(20, 5);
    ClearTerminal(kTerminalCanvas);
    SetMouseMode(0);
    SetCursorVisible(true);
    TakeReplyText();
}

// The shown rows and the cursor: "AB.|CD. 3,2".
string Screen() {
    return ScreenText() + " " + std::to_string(terminalScreen.cursorX) + "," +
           std::to_string(terminalScreen.cursorY);
}

string Everything() {
    const TerminalScreen& screen = terminalScreen;
    string all = Screen() + TakeReplyText().toStdString();
    for (const uint32_t value :
         {screen.curFg, screen.curBg, screen.pendFg, screen.pendBg, uint32_t(screen.cursorVisible),
          uint32_t(screen.topLine), uint32_t(screen.topLimit), uint32_t(screen.textAttr),
          uint32_t(screen.cols), uint32_t(mouseMode)}) {
        all += " " + std::to_string(value);
    }
    return all;
}

class VtParserTest : public testing::Test {
  protected:
    void SetUp() override {
        TerminalSettingsForTable().scrollBack = 10;
        TerminalSettingsForTable().xtermMouse = 3;
        OpenScreenRig(20, 5);
        StartOver();
    }
};

struct Script {
    string feed;
    string screen;
    const char* lineEnding = "CRLF";
    int tabStops = 8;

    // The state at the end, of a feed that may be cut in two.
    string Run(size_t cut = string::npos) const {
        SetLineEnding(lineEnding);
        TerminalSettingsForTable().tabStops = tabStops;
        StartOver();
        Feed(feed.substr(0, cut));
        if (cut != string::npos) Feed(feed.substr(cut));
        return Screen();
    }
};

const string E = "\x1b";
const string C = "\x1b[";

const Script kScripts[] = {
    // Text, controls, the right margin.
    {"A\bB", "B. 2,1"},
    {C + "1;5HAB\bC", "....AC. 7,1"},
    {"A\a\x7f.", "A\a .. 5,1"},
    {"AB\nCD\n\nE", "AB.|CD.||E. 2,4"},
    {"123456\tX", "123456       X. 15,1"},
    {"1234567\tX", "1234567X. 9,1"},
    {"123456789012345678901234", "12345678901234567894 20,1"},
    {"1\n2\n3\n4\n5\n6", "2.|3.|4.|5.|6. 2,5"},
    // ESC and what follows: only "[", "D", "M" and ESC leave the state.
    {"A" + E + "7B" + E + "8C" + E + "cD[D" + C + "0mE", ".[DE. 5,1"},
    {"A\nB" + E + "DC", "B.|.C. 3,2"},
    {"A\nB" + E + "MC", "A.|BC. 3,2"},
    {E + E + "x" + C + "2;3HA", "|..A. 4,2"},
    // Cursor moves: an absent parameter counts 0, margins hold, nothing scrolls.
    {C + "5;5HA" + C + "A" + C + "B" + C + "C" + C + "DB", "||||....AB. 7,5"},
    {C + "3;3H" + C + "1A" + C + "2DX" + C + "9BY" + C + "99CZ" + C + "99DW",
     "|X.|||WY.................Z 2,5"},
    {C + "99;99fX" + C + "HY", "Y.||||...................X 2,1"},
    {C + "3;1;;;;;;;;4;5HX", "||X. 2,3"},
    // Values wrap in 64 bits: minus one moves the other way.
    {C + "3;3HA" + C + "18446744073709551615BB" + C + "18446744073709551615D" + C +
         "18446744073709551615AC",
     "|...B.|..A..C. 7,3"},
    {C + "z" + C + "!pA" + C + "\nB", "pAB. 4,1"},
    // Erasing.
    {"ABCDEF" + C + "3D" + C + "K", "ABC. 4,1"},
    {"ABCDEF" + C + "3D" + C + "1K", "...DEF. 4,1"},
    {"ABCDEF" + C + "3D" + C + "2KX", "ABCXE 5,1"},
    {"AA\nBB\nCC\nDD" + C + "2;2H" + C + "J", "AA.|B. 2,2"},
    {"AA\nBB\nCC\nDD" + C + "4;2H" + C + "1J", "|BB.|CC.|.D. 2,4"},
    {"AA\nBB\nCC" + C + "2;2H" + C + "2J" + C + "7J", " 2,2"},
    // Private sequences.
    {C + "?JKmA\n\ahB", "B. 2,1"},
    {C + "?1" + E + "[2;2HA", "|.A. 3,2"},
    // ESC leaves the slots above the second as they were.
    {C + ";;7?" + E + "[3;9tA", "A. 2,1"},
    {C + "38;2;1;2;3;7mX" + C + "48;2;4;5;6mY" + C + "8;7;30tZ" + C + "6n", "XYZ. 4,1"},
    {"\t\tA\t\x7f" + E + "M" + E + "D\nB" + C + "?" + E + "[;4HQ", "...Q.|B. 5,1"},
    // Received line ends.
    {"A\r\nB\r\r\nC\rD\nE", "A.|B.|CD.|E. 2,4"},
    {"A\r\nB\rC\nD\r\rE", "A.|B.|CD.||E. 2,5", "CR"},
    {"A\r\nB\rC\nD", "A.|BC.|D. 2,3", "LF"},
    {C + "2\r;3HA", "|..A. 4,2", "LF"},
    {C + "1\r\nA", "|A. 2,2", "other"},
    // Tab stops of any value.
    {"A\tB", "AB. 3,1", "CRLF", 0},
    {"A\tB", "A  B. 5,1", "CRLF", -3},
    {string(2000, '\t') + "Z", "                   Z 20,1", "CRLF", 2147483647},
};

// Whatever the cut, the state at the end is the same. Not so where it is meant: a BS that
// finds its character stored already, a pair of CR and LF within a sequence, and a private
// final cut off from its digits.
TEST_F(VtParserTest, ScriptsWholeAndCutAnywhere) {
    SetAllowResize(false);
    for (const Script& script : kScripts) {
        EXPECT_EQ(script.Run(), script.screen) << testing::PrintToString(script.feed);
        if (script.feed.find('\b') != string::npos) continue;
        const string whole = Everything();
        for (size_t cut = 1; cut < std::min<size_t>(script.feed.size(), 99); ++cut) {
            script.Run(cut);
            ASSERT_EQ(Everything(), whole) << testing::PrintToString(script.feed) << cut;
        }
    }
    EXPECT_EQ((Script{"A\b", ""}).Run(1), " . 1,1");
    EXPECT_EQ((Script{C + "1\r\nA", ""}).Run(), "A. 2,1");
}

TEST_F(VtParserTest, PrivateFinalsReadTheWorkingSlot) {
    Feed(C + "?25l");
    EXPECT_FALSE(terminalScreen.cursorVisible);
    Feed(C + "?25");
    Feed("hA");  // cut off from its digits: nothing but the end of the sequence
    EXPECT_FALSE(terminalScreen.cursorVisible);
    Feed(C + "2?5h" + C + "?1000h");  // digits on both sides of "?" make one number
    EXPECT_TRUE(terminalScreen.cursorVisible);
    EXPECT_EQ(mouseMode, 3);
    Feed(C + "?9l");
    EXPECT_EQ(mouseMode, 0);
}

// Attribute, ink and paper of a character behind these parameters; a colour as its place in
// the palette, any other in hex.
string Look(const string& parameters) {
    StartOver();
    Feed(C + parameters + "mX");
    const TerminalCell& cell = TerminalLineAt(1)->cells[1];
    string look = std::to_string(cell.attr);
    for (const uint32_t colour : {cell.fg, cell.bg}) {
        const auto* palette = terminalSettings.palette;
        const auto place = std::find(palette, palette + 8, colour) - palette;
        look +=
            " " + (place < 8 ? QString::number(place) : QString::number(colour, 16)).toStdString();
    }
    return look;
}

TEST_F(VtParserTest, GraphicRendition) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "0 7 0"},
        {"1", "1 7 0"},
        {"4", "2 7 0"},
        {"1;7", "4 7 0"},
        {"7;2;3;5;6;8;9;22;27;100;106;108", "4 7 0"},
        {"107", "0 7 0"},
        {"31;42;0", "0 7 0"},
        {"31;42;39", "0 7 2"},
        {"31;42;49", "0 1 0"},
        {"38;2;1;2;3;7", "0 30201 0"},        // the rest is not looked at
        {"7;48;2;255;0;300", "4 7 2c00ff"},   // beyond 255 the upper bits are lost
        {"38;5;31;1", "1 1 0"},               // the index counts as a code
        {"0;0;0;0;38;2;9;8;7", "0 70809 0"},  // the last place where it fits
        {"0;0;0;0;0;48;2;9;8;7", "0 7 0"},
        {"4294967327;1", "1 7 0"},  // not 31
    };
    for (const auto& row : rows) EXPECT_EQ(Look(row.first), row.second) << row.first;
    for (const string i : {"0", "1", "2", "3", "4", "5", "6", "7"}) {
        EXPECT_EQ(Look("3" + i), "0 " + i + " 0");
        EXPECT_EQ(Look("4" + i), "0 7 " + i);
        EXPECT_EQ(Look("9" + i), i == "7" ? "0 0 0" : "0 " + i + " 0");
    }
    const Chosen bright(&Choices::brightWhite);
    EXPECT_EQ(Look("90;47;97") + Look("30;107"), "0 7 70 0 7");
}

// The colours in force fall back at each scroll; the pending ones come back with the next
// SGR of any kind. A cursor position sequence resets the pending ones alone.
TEST_F(VtParserTest, PendingColoursOutliveAScroll) {
    const uint32_t red = terminalSettings.palette[1], white = 0xFFFFFF;
    const auto colour = [](int row, int column) {
        return TerminalLineAt(terminalScreen.topLine + row)->cells[column].fg;
    };
    Feed(C + "31m\n\n\n\nA\nB" + C + "4mC" + C + "HD" + C + "1mE");
    EXPECT_EQ(colour(4, 1), red);
    EXPECT_EQ(colour(5, 1), white);
    EXPECT_EQ(colour(5, 2), red);
    EXPECT_EQ(colour(1, 1), red);
    EXPECT_EQ(colour(1, 2), white);
}

TEST_F(VtParserTest, RepliesWithTheCursorByOneEvent) {
    Feed(C + "5n" + C + "n" + C + "62n");
    Feed(C + "6n" + C + "3;12H" + C + "06n");
    EXPECT_EQ(TakeReplyText() + TakeReplyText(), "\x1b[3;12R");
    EXPECT_EQ(QueuedEventCount(), 1);
}

TEST_F(VtParserTest, CaptureAndTheWatchForThePrompt) {
    Feed("before");
    StartCapture();
    Feed("a\r\n" + C + "1mb");
    TerminalPrintLine("line");
    SetListingState(kListingWaiting);
    Feed(">1234");
    EXPECT_EQ(capture.listingState, kListingWaiting);
    Feed(">123");
    EXPECT_EQ(capture.listingState, kListingComplete);
    StopCapture();
    Feed("after");
    EXPECT_EQ(TakeCapture(), "a\r\n\x1b[1mbline>1234>123");
    EXPECT_EQ(capture.buffer, "");
}

}  // namespace

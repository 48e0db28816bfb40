// The VT interpreter as scripts: these bytes, this state.
#include "tests/screen/ScreenRig.h"
#include "tests/support/Chosen.h"

namespace {

using std::string;

const string E = "\x1b";
const string C = "\x1b[";

// Fresh 20 by 5, parser in ground state.
void StartOver() {
    Feed(C + "0m" + C + "1;1H" + C + "0m");
    SetTerminalSize(20, 5);
    ClearTerminal(kTerminalCanvas);
    SetMouseMode(0);
    SetCursorVisible(true);
    SetGadgetState(kTerminalScrollBar, 0);
    TakeReplyText();
    DropQueuedEvents(kEventTerminalReply, kNone);
}

// A colour as its place in the palette, any other in hex.
string Colour(uint32_t colour) {
    const auto* palette = terminalSettings.palette;
    const auto place = std::find(palette, palette + 8, colour) - palette;
    return " " + (place < 8 ? QString::number(place) : QString::number(colour, 16)).toStdString();
}

// Attribute, ink and paper of the next character.
string Pen() {
    const TerminalScreen& screen = terminalScreen;
    return std::to_string(screen.textAttr) + Colour(screen.curFg) + Colour(screen.curBg);
}

// The screen, and what else is not as at the start: "AB.|CD. 3,2 hidden".
string State() {
    const TerminalScreen& screen = terminalScreen;
    string all = ScreenText();
    if (Pen() != "0 7 0") all += " pen " + Pen();
    const string pending = Colour(screen.pendFg) + Colour(screen.pendBg);
    if (pending != Pen().substr(1)) all += " pending" + pending;
    if (!screen.cursorVisible) all += " hidden";
    if (mouseMode) all += " mouse " + std::to_string(mouseMode);
    if (screen.topLimit)
        all += " view " + std::to_string(screen.topLine) + "/" + std::to_string(screen.topLimit);
    if (GadgetState(kTerminalScrollBar) != screen.topLine) all += " bar";
    const string reply = TakeReplyText().toStdString();
    if (!reply.empty())
        all += " reply " + reply.substr(1) + " by " + std::to_string(QueuedEventCount());
    return all;
}

class VtParserTest : public testing::Test {
  protected:
    void SetUp() override {
        TerminalSettingsForTable().scrollBack = 100;
        TerminalSettingsForTable().xtermMouse = 3;
        OpenScreenRig(20, 5);
        StartOver();
    }
};

struct Script {
    string feed;
    string state;
    const char* lineEnding = "CRLF";
    int tabStops = 8;

    // The state at the end, of a feed that may be cut in two.
    string Run(size_t cut = string::npos) const {
        SetLineEnding(lineEnding);
        TerminalSettingsForTable().tabStops = tabStops;
        StartOver();
        Feed(feed.substr(0, cut));
        if (cut != string::npos) Feed(feed.substr(cut));
        return State();
    }
};

const Script kScripts[] = {
    // Text, controls, the right margin.
    {"A\bB", "B. 2,1"},
    {C + "1;5HAB\bC", "....AC. 7,1"},
    {"A\a\x7f.", "A\a .. 5,1"},
    {"AB\nCD\n\nE", "AB.|CD.||E. 2,4"},
    {"123456\tX", "123456       X. 15,1"},
    {"1234567\tX", "1234567X. 9,1"},
    {"123456789012345678901234", "12345678901234567894 20,1"},
    {"1\n2\n3\n4\n5\n6", "2.|3.|4.|5.|6. 2,5 view 1/1"},
    // ESC and what follows: only "[", "D", "M" and ESC leave the state.
    {"A" + E + "7B" + E + "8C" + E + "cD[D" + C + "0mE", ".[DE. 5,1 view 1/1"},
    {"A\nB" + E + "DC", "B.|.C. 3,2 view 1/1"},
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
    {C + ";;31?" + E + "[;;mA", "A. 2,1 pen 0 1 0"},
    {C + ";;31?" + E + E + "[;;mA", "A. 2,1"},
    {C + "38;2;1;2;3;7mX" + C + "48;2;4;5;6mY" + C + "8;7;30tZ" + C + "6n",
     "XYZ. 4,1 pen 0 30201 60504 reply [1;4R by 1"},
    {"\t\tA\t\x7f" + E + "M" + E + "D\nB" + C + "?" + E + "[;4HQ", "...Q.|B. 5,1 view 1/1"},
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
    // The colours in force fall back at each scroll; the pending ones come back with the next
    // SGR of any kind. A cursor position resets the pending ones alone.
    {C + "31m\n\n\n\nA\nB", "|||A.|B. 2,5 pending 1 0 view 1/1"},
    {C + "31m\n\n\n\nA\nB" + C + "4mC", "|||A.|BC. 3,5 pen 2 1 0 view 1/1"},
    {C + "31m" + C + "HD", "D. 2,1 pen 0 1 0 pending 7 0"},
    {C + "31m" + C + "HD" + C + "1mE", "DE. 3,1 pen 1 7 0"},
    // Graphic rendition: what does not fit is left out, what stands behind three numbers too.
    {C + "1;7m", " 1,1 pen 4 7 0"},
    {C + "31;42;0m", " 1,1"},
    {C + "38;2;1;2;3;7m", " 1,1 pen 0 30201 0"},
    {C + "7;48;2;255;0;300m", " 1,1 pen 4 7 2c00ff"},   // beyond 255 the upper bits are lost
    {C + "38;5;31;1m", " 1,1 pen 1 1 0"},               // the index counts as a code
    {C + "0;0;0;0;38;2;9;8;7m", " 1,1 pen 0 70809 0"},  // the last place where it fits
    {C + "0;0;0;0;0;48;2;9;8;7m", " 1,1"},
    {C + "4294967327;1m", " 1,1 pen 1 7 0"},  // not 31
    // The view, and the scroll bar with it.
    {"1\n2\n3\n4\n5\n6" + E + "M", "1.|2.|3.|4.|5. 2,5 view 0/1"},
    {"1\n2\n3\n4\n5\n6" + E + "M" + E + "DX", "2.|3.|4.|5.|6X. 3,5 view 1/1"},
    // Replies: one event, the latest place.
    {C + "5n" + C + "n" + C + "62n", " 1,1"},
    {C + "6n" + C + "3;12H" + C + "06n", " 12,3 reply [3;12R by 1"},
    // Private finals read the working slot: digits on both sides of "?" make one number.
    {C + "?25l", " 1,1 hidden"},
    {C + "?25l" + C + "2?5h", " 1,1"},
    {C + "?1000h", " 1,1 mouse 3"},
    {C + "?1000h" + C + "?9l", " 1,1"},
    {C + "?25lX" + C + "?9h", "X. 2,1 hidden mouse 3"},
    {C + ";;;;;;;;?h", " 1,1 mouse 3"},  // without a digit the count of parameters
};

// Whatever the cut, the state at the end is the same. Not so where it is meant: a BS that
// finds its character stored already, a pair of CR and LF within a sequence, and a private
// final cut off from its digits.
TEST_F(VtParserTest, ScriptsWholeAndCutAnywhere) {
    SetAllowResize(false);
    for (const Script& script : kScripts) {
        EXPECT_EQ(script.Run(), script.state) << testing::PrintToString(script.feed);
        if (script.feed.find_first_of("\bhl") != string::npos) continue;
        for (size_t cut = 1; cut < std::min<size_t>(script.feed.size(), 99); ++cut)
            ASSERT_EQ(script.Run(cut), script.state) << testing::PrintToString(script.feed) << cut;
    }
    EXPECT_EQ((Script{"A\b", ""}).Run(1), " . 1,1");
    EXPECT_EQ((Script{C + "1\r\nA", ""}).Run(), "A. 2,1");
    EXPECT_EQ((Script{C + "?25lA", ""}).Run(5), "A. 2,1");
}

// Each code that changes a pen of inverse green on yellow.
TEST_F(VtParserTest, GraphicRendition) {
    const auto told = [](int first) {
        string pens;
        for (int code = first; code < 110; ++code) {
            StartOver();
            Feed(C + "7;32;43m" + C + std::to_string(code) + "mX");
            if (Pen() != "4 2 3") pens += std::to_string(code) + ": " + Pen() + ", ";
        }
        return pens;
    };
    EXPECT_EQ(
        told(0),
        "0: 0 7 0, 1: 1 2 3, 4: 2 2 3, 30: 4 0 3, 31: 4 1 3, 33: 4 3 3, 34: 4 4 3, 35: 4 5 3, "
        "36: 4 6 3, 37: 4 7 3, 39: 4 7 3, 40: 4 2 0, 41: 4 2 1, 42: 4 2 2, 44: 4 2 4, "
        "45: 4 2 5, 46: 4 2 6, 47: 4 2 7, 49: 4 2 0, 90: 4 0 3, 91: 4 1 3, 93: 4 3 3, "
        "94: 4 4 3, 95: 4 5 3, 96: 4 6 3, 97: 4 0 3, 107: 4 2 0, ");
    const Chosen bright(&Choices::brightWhite);
    EXPECT_EQ(told(97), "97: 4 7 3, 107: 4 2 7, ");
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

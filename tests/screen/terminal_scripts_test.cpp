// The terminal as scripts: these bytes, this state. Of the VT interpreter, of the monitors,
// of the capture, and of lines that other threads print.
#include <thread>

#include "tests/screen/ScreenRig.h"
#include "tests/support/Chosen.h"

namespace {

using std::string;

const string E = "\x1b";
const string C = "\x1b[";

// Fresh, of 5 rows, parser in ground state.
void StartOver(int cols = 20) {
    Feed(C + "0m" + C + "1;1H" + C + "0m");
    SetTerminalSize(cols, 5);
    ApplyTerminalSize();
    SetMouseMode(0);
    SetCursorVisible(true);
    SetGadgetState(kTerminalScrollBar, 0);
    TakeReplyText();
    DropQueuedEvents(kEventTerminalReply, kNone);
}

struct TerminalScripts : testing::Test {
    TerminalScripts() {
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
    void (*monitor)(const void* bytes, int64_t count) = nullptr;
    int cols = 20;

    // The state at the end, of a feed that may be cut in two; for a monitor and what it captures.
    string Run(size_t cut = string::npos) const {
        SetLineEnding(lineEnding);
        TerminalSettingsForTable().tabStops = tabStops;
        StartOver(cols);
        StartCapture();
        if (monitor) {
            monitor(feed.data(), static_cast<int64_t>(feed.size()));
            return State() + TakeCapture().toStdString();
        }
        Feed(feed.substr(0, cut));
        if (cut != string::npos) Feed(feed.substr(cut));
        return State();
    }
};

const Script kScripts[] = {
    // Text, controls, the right margin.
    {"A\bB", "B. 2,1"},
    {"A\a\x7f.", "A\a .. 5,1"},
    {"123456\tX\n1234567\tX", "123456       X.|1234567X. 9,2"},
    {"123456789012345678901234", "12345678901234567894 20,1"},
    // ESC and what follows: only "[", "D", "M" and ESC leave the state.
    {"A" + E + "7B" + E + "8C" + E + "cD[D" + C + "0mE", ".[DE. 5,1 view 1/1"},
    // Cursor moves: an absent parameter counts 0, margins hold, nothing scrolls.
    {C + "5;5HA" + C + "A" + C + "B" + C + "C" + C + "DB", "||||....AB. 7,5"},
    {C + "3;3H" + C + "1A" + C + "2DX" + C + "9BY" + C + "99CZ" + C + "99DW",
     "|X.|||WY.................Z 2,5"},
    {C + "99;99;;;;;;;4;5fX" + C + "HY", "Y.||||...................X 2,1"},
    // Erasing.
    {"ABCDEF" + C + "3D" + C + "K\nABCDEF" + C + "3D" + C + "1K\nABCDEF" + C + "3D" + C + "2KX",
     "ABC.|...DEF.|ABCXE 5,3"},
    {"AA\nBB\nCC\nDD\nEE" + C + "2;2H" + C + "J", "AA.|B. 2,2"},
    {"AA\nBB\nCC\nDD" + C + "4;2H" + C + "1J", "|BB.|CC.|.D. 2,4"},
    {"ABCD" + C + "1;2H" + C + "1J", ".BCD. 2,1"},
    {"AA\nBB\nCC" + C + "2;2H" + C + "2J" + C + "7J", " 2,2"},
    // Unknown and private sequences.
    {C + "z" + C + "!pA" + C + "\nB" + C + "?JKmA\n\ahC", "pABC. 5,1"},
    // ESC leaves the slots above the second as they were.
    {C + "7;7;31?" + E + "[;;mA", "A. 2,1 pen 0 cd 0"},
    {C + "7;7;31?" + E + E + "[;;mA", "A. 2,1"},
    // Received line ends.
    {"A\r\nB\r\r\nC\rD\nE", "A.|B.|CD.|E. 2,4"},
    {"A\r\nB\rC\nD\r\rE", "A.|B.|CD.||E. 2,5", "CR"},
    {"A\r\nB\rC\nD", "A.|BC.|D. 2,3", "LF"},
    {C + "2\r;3HA", "|..A. 4,2", "LF"},
    // Tab stops of any value.
    {"A\tB", "AB. 3,1", "CRLF", 0},
    {"A\tB", "A  B. 5,1", "CRLF", -3},
    {string(2000, '\t') + "Z", "                   Z 20,1", "CRLF", 2147483647},
    // The colours in force fall back at each scroll; the pending ones stay.
    {C + "31m\n\n\n\nA\nB", "|||A.|B. 2,5 view 1/1 pending cd 0"},
    // Sizes: whatever the first number is; what is absent stays.
    {C + "8;9999999;4t", " 1,1 size 4x256"},
    {C + "8;4;9999999t", " 1,1 size 256x4"},
    {"A" + C + "1;;50t", " 1,1 size 50x5"},
    // Graphic rendition: what does not fit is left out, what stands behind three numbers too.
    {C + "0;9;39;49;7;31;42;4m", " 1,1 pen 2 cd cd00"},
    {C + "7;48;2;255;0;300m", " 1,1 pen 4 ffffff 2c00ff"},  // beyond 255 the upper bits are lost
    {C + "0;0;0;0;38;2;9;8;7m", " 1,1 pen 0 70809 0"},      // the last place where it fits
    // The view, and the scroll bar with it.
    {"1\n2\n3\n4\n5\n6" + E + "M" + E + "DX", "2.|3.|4.|5.|6X. 3,5 view 1/1"},
    // Replies: one event, the latest place.
    {C + "5n" + C + "n" + C + "62n", " 1,1"},
    {C + "6n" + C + "3;12H" + C + "06n", " 12,3 reply [3;12R by 1"},
    {C + "?1000h" + C + "?9l", " 1,1"},
    {C + "?25lX" + C + "?1000h", "X. 2,1 hidden mouse 3"},
    {C + ";;;;;;;;?h", " 1,1 mouse 3"},  // without a digit the count of parameters
    // The plain view ends lines whatever the line ending is.
    {"a\r\nb\rc\n\r\nd", "a.|b.|c.||d. 2,5", "LF", 8, TerminalPrintRaw},
    {"1\n2\n3\n4\nfive\nsix\n", "3.|4.|five.|six. 1,5 view 2/2", "CR", 8, TerminalPrintRaw},
    // The hex view goes on in its row behind a clear, and is held at a narrow terminal's edge.
    {"\x10\x1b\x1f !/0123456789:@ABCDEF\x7f\x80\xfe\xff",
     ".10.1B.1F.20.21.2F.30.31...32.33.34.35.36.37.38.39....... !/01..23456789.|"
     ".3A.40.41.42.43.44.45.46...7F.80.FE.FF................:@ABCDEF..\x7f\x80\xFE\xFF. 69,2 "
     "size 80x5",
     "CR", 8, TerminalHexDump, 80},
    {"123456789abcdef",
     ".......................................4|.35.36.37.38.39.61.62.63...64.65.66..... 40,2 size "
     "40x5",
     "CR", 8, TerminalHexDump, 40},
};

// Whatever the cut, the state at the end is the same. Not so where it is meant: a BS that
// finds its character stored already, a pair of CR and LF within a sequence, and a private
// final cut off from its digits.
TEST_F(TerminalScripts, ScriptsWholeAndCutAnywhere) {
    for (const Script& script : kScripts) {
        EXPECT_EQ(script.Run(), script.state) << testing::PrintToString(script.feed);
        if (script.monitor || script.feed.find_first_of("\bhl") != string::npos) continue;
        for (size_t cut = 1; cut < std::min<size_t>(script.feed.size(), 40); ++cut)
            ASSERT_EQ(script.Run(cut), script.state) << testing::PrintToString(script.feed) << cut;
    }
    EXPECT_EQ((Script{"A\b", ""}).Run(1), " . 1,1");
    EXPECT_EQ((Script{C + "1\r\nA", ""}).Run(), "A. 2,1");
    EXPECT_EQ((Script{C + "?25lA", ""}).Run(5), "A. 2,1");
    SetAllowResize(false);
    EXPECT_EQ((Script{C + "8;24;80tA", ""}).Run(), "A. 2,1");
}

// Each code that changes a pen of inverse green on yellow.
TEST_F(TerminalScripts, GraphicRendition) {
    const auto told = [](int first) {
        string pens;
        for (int code = first; code < 110; ++code) {
            StartOver();
            Feed(C + "7;32;43m" + C + std::to_string(code) + "mX");
            if (Pen() != "4 cd00 e1e1") pens += std::to_string(code) + ": " + Pen() + ", ";
        }
        return pens;
    };
    EXPECT_EQ(told(0),
              "0: 0 ffffff 0, 1: 1 cd00 e1e1, 4: 2 cd00 e1e1, 30: 4 0 e1e1, 31: 4 cd e1e1, 33: 4 "
              "e1e1 e1e1, 34: 4 e10000 e1e1, 35: 4 cd00cd e1e1, 36: 4 cdcd00 e1e1, 37: 4 ffffff "
              "e1e1, 39: 4 ffffff e1e1, 40: 4 cd00 0, 41: 4 cd00 cd, 42: 4 cd00 cd00, 44: 4 cd00 "
              "e10000, 45: 4 cd00 cd00cd, 46: 4 cd00 cdcd00, 47: 4 cd00 ffffff, 49: 4 cd00 0, 90: "
              "4 0 e1e1, 91: 4 cd e1e1, 93: 4 e1e1 e1e1, 94: 4 e10000 e1e1, 95: 4 cd00cd e1e1, 96: "
              "4 cdcd00 e1e1, 97: 4 0 e1e1, 107: 4 cd00 0, ");
    const Chosen bright(&Choices::brightWhite);
    EXPECT_EQ(told(97), "97: 4 ffffff e1e1, 107: 4 cd00 ffffff, ");
}

TEST_F(TerminalScripts, OfTheCaptureAndTheWatchForThePrompt) {
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
    EXPECT_EQ(TakeCapture() + capture.buffer, "a\r\n\x1b[1mbline>1234>123");
}

TEST_F(TerminalScripts, LinesOfOtherThreadsStandInOrderWithTheirEvents) {
    std::thread worker([] {
        TerminalPrintLine("one");
        PostInterfaceEvent(kEventSendStatus, kMainWindow, kNone, 0);
        for (int i = 0; i < 2 * kMostHandedLines; ++i) TerminalPrintLine("two");
    });
    worker.join();
    string order = State();
    int printed = 0;
    for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;) {
        if (event == kEventSendStatus) order += " status";
        if (event != kEventPrintLine) continue;
        PrintHandedLines();
        if (++printed < 3) order += " " + State();
    }
    EXPECT_EQ(order, " 1,1 one. 1,2 status one.|two. 1,3");
    EXPECT_EQ(printed, kMostHandedLines);
}

}  // namespace

// Selecting with the mouse: which cells light up on the way, and what is copied; the
// terminal's text, and the files that it is saved to.
#include "tests/screen/ScreenRig.h"
#include "tests/support/ScratchFolder.h"

namespace {

const bool startState = KeepStartState(PutBackScreen);

constexpr int kCols = 20;
constexpr int kRows = 5;

struct SelectionTest : testing::Test {
    SelectionTest() {
        OpenScreenRig(kCols, kRows);
        Feed("abcdefghijklmnopqrst\nuvwx\x1b[2;10Hyz\n\n0123");
    }
    static void PointTo(int column, int row) {
        CanvasEventData data;
        data.x = column * terminalMetrics.charWidth + (column < 0 ? -1 : 1);
        data.y = row * terminalMetrics.charHeight + (row < 0 ? -1 : 1);
        RaiseCanvasEvent(FindCanvas(kTerminalCanvas), kTypeMouseMove, kEventUnmerged, data);
        while (WaitForEvent(0) != kNoEvent && EventType() != kTypeMouseMove) {
        }
        ExtendSelection();
    }
    // The copied text; "untouched" for nothing.
    static QString Finish() {
        SetClipboardText("untouched");
        FinishSelection();
        return ClipboardText();
    }
    // A path of columns and rows, from 0.
    static QString Select(const std::vector<std::pair<int, int>>& places) {
        for (const auto& [column, row] : places) PointTo(column, row);
        return Finish();
    }
};

TEST_F(SelectionTest, LitCellsAndCopiedTextOfEachPath) {
    const struct {
        std::vector<int> path, lit;  // cell indexes
        QString copied;
    } cases[] = {
        {{60, 63, 61}, {61}, "01"},
        {{5, 8, 8, 5}, {}, "f"},
        {{5, 3, 5, 4}, {0, 4}, "ef"},
        {{5, 8, 3}, {3, 4, 5, 8}, "def"},      // over the anchor in one step
        {{5, 3, 8}, {3, 5, 6, 7, 8}, "fghi"},  // and back
        {{18, 22}, {19, 20, 21, 22}, "st\ruvw"},
    };
    const int width = terminalMetrics.charWidth, height = terminalMetrics.charHeight;
    for (const auto& each : cases) {
        TerminalRepaint();
        const QImage before = TerminalPicture();
        QImage lit = before;
        QPainter painter(&lit);
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        for (const int cell : each.lit)
            painter.fillRect(cell % kCols * width + 2, cell / kCols * height + 2, width, height,
                             QColor(64, 64, 64));
        for (const int cell : each.path) PointTo(cell % kCols, cell / kCols);
        EXPECT_EQ(TerminalPicture(), lit) << each.path[1];
        EXPECT_EQ(Finish(), each.copied);
        EXPECT_EQ(TerminalPicture(), before);
    }
    EXPECT_EQ(GadgetText(kNoticeText), "Selection copied to clipboard");
}

TEST_F(SelectionTest, CopiesRowsAsTheyAreHeld) {
    EXPECT_EQ(Select({{5, 3}, {3, 4}}), "untouched");  // line ends alone
    Feed("\x1b[5;1H     ");
    EXPECT_EQ(Select({{0, 4}, {4, 4}}), "untouched");
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
    // A row up to its length, holes closed up, rows joined by CR alone; the last row up to
    // where the pointer was.
    EXPECT_EQ(Select({{1, 3}, {19, 0}, {18, 0}}), "st\ruvwxyz\r\r01");
    EXPECT_EQ(Select({{0, 3}}), "0");  // one move, one cell
    // In front of the first cell the selection is gone; one begins where it comes back.
    EXPECT_EQ(Select({{-1, 0}, {5, 1}, {3, -1}, {1, 0}, {3, 0}}), "bcd");
    // Below the last line held, that line is read again.
    Feed("\x1b[5;1Hlast");
    EXPECT_EQ(Select({{0, 4}, {1 << 24, 1 << 24}}).left(12), "last \rlast \r");
    SetScrollBackLimits(100, 3);  // what bounds a copy does not bound a selection
    Feed("\n\n\n");
    EXPECT_EQ(Select({{0, 0}, {9, 0}}), "0123");
    TerminalSettingsForTable().adviseCopied = 0;
    EXPECT_EQ(Select({{0, 0}, {4, 0}}), "untouched");
}

TEST(TerminalText, LinesUpToTheirLengthAndTheirFiles) {
    OpenScreenRig(10, 3);
    Feed("one\n\x1b[1;6Htwo\nthree\nfour\xE9\n\n");
    const QString visible = "fouré \r\n\r\n\r\n", all = "one  two \r\nthree \r\n" + visible;
    const ScratchFolder folder;
    static FileChoice answer;
    DialogAnswers answers;
    answers.file = [](const QString&, const QString&) { return answer; };
    AnswerDialogs(&answers);
    StartCapture();
    CaptureText("captured\x1b[m\ré→");
    const std::pair<FileChoice, TextPart> saves[] = {
        {{"a", 0}, TextPart::kVisible},       {{"missing/f", 0}, TextPart::kVisible},
        {{"b", 1}, TextPart::kAll},           {{"c", 2}, TextPart::kVisible},
        {{QString(), 0}, TextPart::kCapture},
    };
    QString files;
    for (const auto& [chosen, what] : saves) {
        answer = chosen;
        SaveTerminalText(what);
    }
    for (const QString& name : QDir().entryList(QDir::Files | QDir::Hidden))
        files += name + ":" + QString::fromLatin1(ScratchFolder::Get(name)) + "|";
    EXPECT_EQ(files + capture.buffer,
              ".bas:captured\x1b[m\ré?|a.bas:" + visible + "|b.txt:" + all + "|c:" + visible + "|");
    TerminalScrollDown(2);
    SetLineEnding("CR");
    SetScrollBackLimits(100, 4);
    EXPECT_EQ(GetTerminalText(TextPart::kVisible), "one \rthre\rfour\r");
}

// Used again, a line is empty, beyond its length too.
TEST(TerminalText, OfTheLatestLines) {
    OpenScreenRig(80, 5);
    SetScrollBackLimits(100, 256);
    QString due;
    for (int i = 0; i < 1000; ++i) {
        if (i == 800) SetScrollBackLimits(300, 256);
        const QString indent(i % 3 * 20 + i % 7, ' ');
        MoveTerminalCursor(indent.size() + 1, terminalScreen.cursorY);
        TerminalPrintLine(QString::number(i));
        if (i >= 696) due += indent + QString::number(i) + " \r\n";
    }
    EXPECT_EQ(GetTerminalText(TextPart::kAll), due + "\r\n");
}

}  // namespace

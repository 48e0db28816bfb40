#include "tests/editor/EditorBench.h"

namespace {

using Typing = EditorBench;

// The colour of each character: keyword, number, text, comment, directive, label, or none.
std::string Cut(const QString& line) {
    QString result = QString(line.size(), '.');
    for (const BasicPiece& piece : CutBasicLine(line)) {
        const QChar mark = QString(".KNTCDL")[static_cast<int>(piece.kind)];
        result.replace(piece.start, piece.length, QString(piece.length, mark));
    }
    return result.toStdString();
}

TEST(BasicWords, HaveColoursAndPlacesInTheIndex) {
    const std::pair<const char*, const char*> rows[] = {
        {"10 IF a$=\"it's\" THEN x1=-1.5E-3:'note", "LL.KK....TTTTTT.KKKK.....NNNNNN.CCCCC"},
        {"10PRINT 5ELSE .5", "LLKKKKK.NKKKK.NN"},
        {"left$(x)+&HFF+printer: REM if", "KKKKK....NNNN..........CCCCCC"},
        {"again: GOTO again: b:", "LLLLL..KKKK.........."},
        {"PIO START : start = MM.INFO(UPTIME)", "KKK.KKKKK...........KKKKKKK.KKKKKK."},
        {"'TARGET s\\pico", "DDDDDDDDDDDDDD"},
        {"? \"open", "..TTTTT"},
    };
    for (const auto& [line, cut] : rows) EXPECT_EQ(Cut(line), cut) << line;
    EXPECT_EQ(PlaceInIndex("line", "input", "") + PlaceInIndex("", "nothing", ""),
              "console.htm#line-input");
}

// Words go on as they began, names of the text too; Return behind a whole word ends the line.
TEST_F(Typing, IndentsCommentsAndCompletes) {
    editor->OpenAll({});
    Do({{"IF a THEN\n    b = 1\nc = (2)", "IF a THEN\n    b = 1\n    c = (2)"},
        {"[Ctrl+A, Tab, Ctrl+A, Ctrl+3]", "    'IF a THEN\n        'b = 1\n        'c = (2)"},
        {"[Ctrl+A, Shift+Tab, Ctrl+A, Ctrl+3]", "IF a THEN\n    b = 1\n    c = (2)"},
        {"[Ctrl+A, Del]framebuf\t Create\nCountdown = 1\nCoun\t\nelse\n' wri\nx$=\"wri\n",
         "framebuffer Create\nCountdown = 1\nCountdown\nelse\n' wri\nx$=\"wri\n"}});
    Do("li");
    EXPECT_FALSE(Text().isListActive());
    Do("[Ctrl+Space]");
    EXPECT_TRUE(Text().isListActive() && Window().isWindowModified());
}

TEST_F(Typing, FindsAndReplaces) {
    Open("One two ONE\nalone one\n");
    // Row and column of what is found: round the end and back, then whole words and their case;
    // what is not there leaves the place.
    QString found;
    for (const char* script : {"[Ctrl+F]one\n", "[F3]", "[F3]", "[F3]", "[F3]", "[Shift+F3]",
                               "[Alt+P]", "[Alt+W, Alt+C, Esc, F3]", "[Ctrl+F]none\n"}) {
        int row = 0, start = 0, ignored = 0;
        Do(script);
        Text().getSelection(&row, &start, &ignored, &ignored);
        found += QString(" %1:%2").arg(row).arg(start);
    }
    EXPECT_EQ(found, " 0:0 0:8 1:2 1:6 0:0 1:6 1:2 1:6 1:6");
    Do({{"[Ctrl+H]one[Alt+Y]1\n", "One two ONE\nalone 1\n"},
        {"[Alt+C, Alt+G, Alt+D](O)ne|^[Ctrl+A](o)(ne)[Alt+Y, Ctrl+A]<\\2>[Alt+A]",
         "<ne> two <NE>\nalone 1\n"},
        // Places without a character.
        {"[Alt+W, Alt+D, Ctrl+A]^[Alt+A]", "<><ne> two <NE>\n<>alone 1\n<>"},
        {"[Alt+D](\n", "<><ne> two <NE>\n<>alone 1\n<>"}});
    QString said;
    for (QLabel* label : Window().Finder()->findChildren<QLabel*>())
        said += label->isVisible() ? label->text() : "";
    EXPECT_TRUE(said.contains("not a regular expression"));
    Do("[Esc, Ctrl+Z, Ctrl+Z]");
    EXPECT_EQ(Shown(), "One two ONE\nalone 1\n");
}

TEST_F(Typing, JumpsToLinesProceduresAndErrors) {
    Open("x=1\nSUB Draw(a)\nEND SUB\n  Function F$(x)\nEnd Function\n'sub no\n" +
         QByteArray(500, '\n'));
    const auto at = [this] {
        int row = 0, column = 0;
        return Text().getCursorPosition(&row, &column), row + 1;
    };
    line = 300;
    Do("[Ctrl+G, Ctrl+J]");
    EXPECT_TRUE(Until([] { return QApplication::activePopupWidget() != nullptr; }));
    for (const auto key : {Qt::Key_Up, Qt::Key_Return})  // from the one before line 300
        QTest::keyClick(Window().Procedures()->view(), key);
    EXPECT_EQ(at(), 2);
    EXPECT_EQ(Window().Procedures()->itemText(2), "Function F$");
    const std::pair<const char*, int> reports[] = {
        {"> RUN\r\n[4] PRINT 1/0\r\nError : Divide by zero\r\n", 4},
        {"[3] x\nError in line 120: Syntax", 120},
        {"[99999] far", 507},
        {"[1", 507},
    };
    for (const auto& [report, row] : reports) {
        QApplication::clipboard()->setText(report);
        Do("[Ctrl+E]");
        EXPECT_EQ(at(), row) << report;
    }
    EXPECT_TRUE(Status().startsWith("Copy the board's report"));
}

TEST_F(Typing, HelpZoomFontPrintAndWhatIsRemembered) {
    Open("x = 1 : OPTION  BASE 1");
    Do("[End, Left, Left, Left][F1]");
    auto& help = *Window().findChild<HelpPane*>();
    EXPECT_TRUE(help.isVisible());
    EXPECT_TRUE(help.Page().source().toString().endsWith("data.htm#option-base"));
    EXPECT_TRUE(help.Page().toPlainText().contains("OPTION BASE"));
    Text().setFocus();
    printed = folder.filePath("out.pdf");
    Do("[Ctrl+P]");
    EXPECT_EQ(Contents("out.pdf").left(4), "%PDF");
    Do("[Ctrl++, Ctrl++, Ctrl+-]");
    for (QAction* action : Window().findChildren<QAction*>())
        if (action->text() == "&Font...") action->trigger();
    Window().setGeometry(60, 50, 640, 480);
    Do("[Ctrl+W]");
    Settle();
    editor->OpenAll({});
    EXPECT_EQ(Window().geometry(), QRect(60, 50, 640, 480));
    EXPECT_EQ(Text().SendScintilla(QsciScintilla::SCI_GETZOOM), 1);
    EXPECT_EQ(Text().SourceFont().pointSize(), 19);
    EXPECT_TRUE(Habits(setup.settingsFile).RecentFiles().contains(folder.filePath("a.bas")));
}

}  // namespace

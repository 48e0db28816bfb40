#include <QAbstractItemView>

#include "editor/BasicIndex.h"
#include "editor/BasicLine.h"
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

TEST(BasicWords, LinesAreCutIntoColours) {
    const std::pair<const char*, const char*> rows[] = {
        {"10 IF a$=\"it's\" THEN x1=-1.5E-3:'note", "LL.KK....TTTTTT.KKKK.....NNNNNN.CCCCC"},
        {"10PRINT 5ELSE .5", "LLKKKKK.NKKKK.NN"},
        {"left$(x)+&HFF+printer: REM if", "KKKKK....NNNN..........CCCCCC"},
        {"again: GOTO again: b:", "LLLLL..KKKK.........."},
        {"PIO START : start = MM.INFO(UPTIME)", "KKK.KKKKK...........KKKKKKK.KKKKKK."},
        {"'TARGET s\\pico", "DDDDDDDDDDDDDD"},
        {"? \"open", "..TTTTT"},
        {"", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(Cut(row.first), row.second) << row.first;
}

TEST(BasicWords, HaveTheirPlacesInTheIndex) {
    EXPECT_TRUE(IsBasicWord("left$") && IsBasicWord("mm.info") && !IsBasicWord("printer"));
    EXPECT_EQ(PlaceInIndex("", "option", "base"), "data.htm#option-base");
    EXPECT_EQ(PlaceInIndex("line", "input", ""), "console.htm#line-input");
    EXPECT_EQ(PlaceInIndex("", "nothing", "") + PlaceInIndex("", "", ""), "");
}

TEST_F(Typing, IndentsCommentsAndCompletes) {
    editor->OpenAll({});
    Do("IF a THEN\n    b = 1\nc = (2)");
    EXPECT_EQ(Shown(), "IF a THEN\n    b = 1\n    c = (2)");
    Do("[Ctrl+A, Tab, Ctrl+A, Ctrl+3]");
    EXPECT_EQ(Shown(), "    'IF a THEN\n        'b = 1\n        'c = (2)");
    Do("[Ctrl+A, Shift+Tab, Ctrl+A, Ctrl+3]");
    EXPECT_EQ(Shown(), "IF a THEN\n    b = 1\n    c = (2)");
    // Words go on as they began, names of the text too; Return behind a whole word ends the line.
    Do("[Ctrl+A, Del]framebuf\t Create\nCountdown = 1\nCoun\t\nelse\n' wri\nx$=\"wri\n");
    EXPECT_EQ(Shown(), "framebuffer Create\nCountdown = 1\nCountdown\nelse\n' wri\nx$=\"wri\n");
    Do("li");
    EXPECT_FALSE(Text().isListActive());
    Do("[Ctrl+Space]");
    EXPECT_TRUE(Text().isListActive());
    Do("[Esc]");
    EXPECT_TRUE(!Text().isListActive() && Window().isWindowModified());
}

TEST_F(Typing, FindsAndReplaces) {
    Open("One two ONE\nalone one\n");
    // The place of what is found after each script, its row in front of its column.
    const std::pair<const char*, int> finds[] = {
        {"[Ctrl+F]one\n", 0},
        {"[F3]", 8},
        {"[F3]", 102},
        {"[F3]", 106},
        {"[F3]", 0},
        {"[Shift+F3]", 106},
        {"[Alt+P]", 102},
        {"[Alt+W, Alt+C, Esc, F3]", 106},  // whole words, and their case
        {"[Ctrl+F]none\n", 106},           // stays where it was
    };
    for (const auto& [script, place] : finds) {
        int row = 0, start = 0, ignored = 0;
        Do(script);
        Text().getSelection(&row, &start, &ignored, &ignored);
        EXPECT_EQ(row * 100 + start, place) << script;
    }
    const std::pair<const char*, const char*> replaces[] = {
        {"[Ctrl+H]one[Alt+Y]1\n", "One two ONE\nalone 1\n"},
        {"[Alt+C, Alt+G, Alt+D](O)ne|^[Ctrl+A](o)(ne)[Alt+Y, Ctrl+A]<\\2>[Alt+A]",
         "<ne> two <NE>\nalone 1\n"},
        // Places without a character.
        {"[Alt+W, Alt+D, Ctrl+A]^[Alt+A]", "<><ne> two <NE>\n<>alone 1\n<>"},
    };
    for (const auto& [script, text] : replaces) {
        Do(script);
        EXPECT_EQ(Shown(), text) << script;
    }
    Do("[Alt+D](\n");
    const auto labels = Window().Finder()->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](QLabel* label) {
        return label->isVisible() && label->text() == "not a regular expression";
    }));
    Do("[Esc, Ctrl+Z, Ctrl+Z]");
    EXPECT_EQ(Shown(), "One two ONE\nalone 1\n");
}

TEST_F(Typing, JumpsToLinesProceduresAndErrors) {
    Open("x=1\nSUB Draw(a)\nEND SUB\n  Function F$(x)\nEnd Function\n'sub no\n" +
         QByteArray(500, '\n'));
    const auto at = [this] {
        return Text().SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION,
                                    Text().SendScintilla(QsciScintilla::SCI_GETCURRENTPOS)) +
               1;
    };
    line = 300;
    Do("[Ctrl+G]");
    EXPECT_EQ(at(), 300);
    Do("[Ctrl+J]");
    EXPECT_TRUE(Until([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(Window().Procedures()->view(), Qt::Key_Up);  // from the one before line 300
    QTest::keyClick(Window().Procedures()->view(), Qt::Key_Return);
    EXPECT_EQ(at(), 2);
    EXPECT_EQ(Window().Procedures()->itemText(2), "Function F$");
    const std::pair<const char*, int> reports[] = {
        {"> RUN\r\n[4] PRINT 1/0\r\nError : Divide by zero\r\n", 4},
        {"[3] x\nError in line 120: Syntax", 120},
        {"[99999] far", 507},
        {"[1", 507},
    };
    for (const auto& report : reports) {
        QApplication::clipboard()->setText(report.first);
        Do("[Ctrl+E]");
        EXPECT_EQ(at(), report.second) << report.first;
    }
    EXPECT_TRUE(Status().startsWith("Copy the board's report"));
}

TEST_F(Typing, HelpZoomFontPrintAndWhatIsRemembered) {
    Open("x = 1 : OPTION  BASE 1");
    Do("[End, Left, Left, Left][F1]");
    auto& help = *Window().findChild<HelpPane*>();
    EXPECT_TRUE(help.isVisible());
    EXPECT_EQ(help.Page().source().fileName() + '#' + help.Page().source().fragment(),
              "data.htm#option-base");
    EXPECT_TRUE(help.Page().toPlainText().contains("OPTION BASE"));
    Text().setFocus();
    printed = folder.filePath("out.pdf");
    Do("[Ctrl+P]");
    EXPECT_EQ(Contents("out.pdf").left(4), "%PDF");
    Do("[Ctrl++, Ctrl++, Ctrl+-]");
    for (QAction* action : Window().findChildren<QAction*>()) {
        if (action->text() == "&Font...") action->trigger();
    }
    Window().resize(640, 480);
    Window().move(60, 50);
    Do("[Ctrl+W]");
    Settle();
    editor->OpenAll({});
    EXPECT_EQ(Window().size(), QSize(640, 480));
    EXPECT_EQ(Text().SendScintilla(QsciScintilla::SCI_GETZOOM), 1);
    EXPECT_EQ(Text().SourceFont().pointSize(), 19);
    Do("[Ctrl+N]");
    EXPECT_NE(Window(0).pos(), Window(1).pos());
    EXPECT_EQ(Window(0).pos().x(), 60);
    EXPECT_TRUE(Habits(setup.settingsFile).RecentFiles().contains(folder.filePath("a.bas")));
}

}  // namespace

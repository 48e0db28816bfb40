#include <QAbstractItemView>
#include <QRegularExpression>

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

// The pages are read here in another way than the build does it.
TEST(BasicWords, NoWordOfTheIndexIsMissing) {
    const QString page = ScratchFolder::Get(KWCC_SOURCE_DIR "/data/html/az.htm");
    const QRegularExpression entry("<a href=\"([a-z]+\\.htm#[^\"]+)\">([A-Z][A-Z0-9_.]+\\$?)");
    int entries = 0;
    for (auto found = entry.globalMatch(page); found.hasNext(); ++entries) {
        const QString word = found.next().captured(2);
        EXPECT_TRUE(IsBasicWord(word.toLower())) << word.toStdString();
        EXPECT_NE(PlaceInIndex("", word, ""), "") << word.toStdString();
    }
    EXPECT_GT(entries, 400);
    EXPECT_FALSE(IsBasicWord("printer"));
    EXPECT_EQ(PlaceInIndex("", "option", "base"), "data.htm#option-base");
    EXPECT_EQ(PlaceInIndex("line", "input", ""), "console.htm#line-input");
    EXPECT_EQ(PlaceInIndex("", "nothing", "") + PlaceInIndex("", "", ""), "");
}

TEST_F(Typing, IndentsCommentsAndCompletes) {
    editor->OpenAll({});
    Type("IF a THEN\n    b = 1\nc = (2)");
    EXPECT_EQ(Shown(), "IF a THEN\n    b = 1\n    c = (2)");
    Press("Ctrl+A, Tab");
    Press("Ctrl+A, Ctrl+3");
    EXPECT_EQ(Shown(), "    'IF a THEN\n        'b = 1\n        'c = (2)");
    Press("Ctrl+A, Shift+Tab");
    Press("Ctrl+A, Ctrl+3");
    EXPECT_EQ(Shown(), "IF a THEN\n    b = 1\n    c = (2)");
    Press("Ctrl+A, Delete");
    // Words go on as they began, names of the text too; Return behind a whole word ends the line.
    Type("framebuf\t Create\nCountdown = 1\nCoun\t\nelse\n' wri\nx$=\"wri\n");
    EXPECT_EQ(Text().text(),
              "framebuffer Create\nCountdown = 1\nCountdown\nelse\n' wri\nx$=\"wri\n");
    Type("li");
    EXPECT_FALSE(Text().isListActive());
    Press("Ctrl+Space");
    EXPECT_TRUE(Text().isListActive());
    Press("Esc");
    EXPECT_TRUE(!Text().isListActive() && Window().isWindowModified());
}

TEST_F(Typing, FindsAndReplaces) {
    Open("One two ONE\nalone one\n");
    std::vector<int> places;
    const auto place = [&] {
        int row = 0, start = 0, ignored = 0;
        Text().getSelection(&row, &start, &ignored, &ignored);
        places.push_back(row * 100 + start);
    };
    Press("Ctrl+F");
    Type("one\n");
    place();
    for (const char* keys : {"F3", "F3", "F3", "F3", "Shift+F3", "Alt+P"}) Press(keys), place();
    EXPECT_EQ(places, std::vector<int>({0, 8, 102, 106, 0, 106, 102}));
    Press("Alt+W");  // whole words
    Press("Alt+C");  // and their case
    Press("Esc, F3");
    place();
    Press("Ctrl+F");
    Type("none\n");
    place();
    EXPECT_EQ(places[7] * 1000 + places[8], 106106);  // stays where it was
    Press("Ctrl+H");
    Type("one");
    Press("Alt+Y");
    Type("1\n");
    EXPECT_EQ(Shown(), "One two ONE\nalone 1\n");
    Press("Alt+C, Alt+G, Alt+D");
    Type("(O)ne|^");
    Press("Ctrl+A");
    Type("(o)(ne)");
    Press("Alt+Y, Ctrl+A");
    Type("<\\2>");
    Press("Alt+A");
    EXPECT_EQ(Shown(), "<ne> two <NE>\nalone 1\n");
    Press("Alt+W, Alt+D, Ctrl+A");
    Type("^");  // places without a character
    Press("Alt+A");
    EXPECT_EQ(Shown(), "<><ne> two <NE>\n<>alone 1\n<>");
    Press("Alt+D");
    Type("(");
    Press("Return");
    const auto labels = Window().Finder()->findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](QLabel* label) {
        return label->isVisible() && label->text() == "not a regular expression";
    }));
    Press("Esc, Ctrl+Z, Ctrl+Z");
    EXPECT_EQ(Shown(), "One two ONE\nalone 1\n");
}

TEST_F(Typing, JumpsToLinesProceduresAndErrors) {
    Open("x=1\nSUB Draw(a)\nEND SUB\n  Function F$(x)\nEnd Function\n'sub no\n" +
         QByteArray(500, '\n'));
    const auto at = [this] {
        int row = 0, ignored = 0;
        Text().getCursorPosition(&row, &ignored);
        return row + 1;
    };
    line = 300;
    Press("Ctrl+G");
    EXPECT_EQ(at(), 300);
    Press("Ctrl+J");
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
        Press("Ctrl+E");
        EXPECT_EQ(at(), report.second) << report.first;
    }
    EXPECT_TRUE(Status().startsWith("Copy the board's report"));
}

TEST_F(Typing, HelpZoomFontPrintAndWhatIsRemembered) {
    Open("x = 1 : OPTION  BASE 1");
    Press("End, Left, Left, Left");
    Press("F1");
    auto& help = *Window().findChild<HelpPane*>();
    EXPECT_TRUE(help.isVisible());
    EXPECT_EQ(help.Page().source().fileName() + '#' + help.Page().source().fragment(),
              "data.htm#option-base");
    EXPECT_TRUE(help.Page().toPlainText().contains("OPTION BASE"));
    Text().setFocus();
    printed = folder.filePath("out.pdf");
    Press("Ctrl+P");
    EXPECT_EQ(Contents("out.pdf").left(4), "%PDF");
    Press("Ctrl++, Ctrl++, Ctrl+-");
    for (QAction* action : Window().findChildren<QAction*>()) {
        if (action->text() == "&Font...") action->trigger();
    }
    Window().resize(640, 480);
    Window().move(60, 50);
    Press("Ctrl+W");
    Settle();
    editor->OpenAll({});
    EXPECT_EQ(Window().size(), QSize(640, 480));
    EXPECT_EQ(Text().SendScintilla(QsciScintilla::SCI_GETZOOM), 1);
    EXPECT_EQ(Text().SourceFont().pointSize(), 19);
    Press("Ctrl+N");
    EXPECT_NE(Window(0).pos(), Window(1).pos());
    EXPECT_EQ(Window(0).pos().x(), 60);
    EXPECT_TRUE(Habits(setup.settingsFile).RecentFiles().contains(folder.filePath("a.bas")));
}

TEST_F(Typing, DarkAsTheDesktopIs) {
    Open("PRINT 1");
    const auto colour = [this](int style) {
        return QColor(QRgb(Text().SendScintilla(QsciScintilla::SCI_STYLEGETFORE, style)));
    };
    const int before = colour(1).lightness();
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    EXPECT_TRUE(Until([&] { return colour(0).lightness() > 250; }));
    EXPECT_GT(colour(1).lightness(), before + 60);
    QApplication::setPalette(QPalette());
}

}  // namespace

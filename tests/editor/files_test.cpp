#include <sys/stat.h>

#include "tests/editor/EditorBench.h"

namespace {

using Files = EditorBench;

TEST_F(Files, AreWrittenBackByteByByte) {
    QByteArray all;
    for (int i = 1; i < 256; ++i) all += static_cast<char>(i);
    const QByteArray some =
        "|\n\n|A\r\nB\r\n|A\rB\nC\r\n|no end|\xef\xbb\xbf'\xc3\xa9\n|"
        "'\xc3\xa9 \xe2\x82\xac\xc2\xa0\n|\xe2\x80\xa9 \xc3\xa9\n|\xc3";
    for (const QByteArray& row : some.split('|') + QByteArrayList{all}) {
        Open(row);
        Do("x[Backspace, Ctrl+S, Ctrl+W]");
        EXPECT_EQ(Contents("a.bas").toHex(), row.toHex());
        Settle();
    }
    Open("\xe9\r\nC\r\n");
    Do("[Down]\n");
    Text().insert(QChar(0x20AC));  // no byte for it
    Do("[Ctrl+S]");
    EXPECT_EQ(Contents("a.bas"), QString::fromUtf8("\u00e9\r\n\r\n\u20acC\r\n").toUtf8());
    EXPECT_FALSE(Window().isWindowModified());
}

// None of these may hang, or lose what is there.
TEST_F(Files, BadOnesAreToldAndNothingIsLost) {
    editor->OpenAll({});
    QFile(Write("large", "")).resize(64 * 1024 * 1024);
    mkfifo(folder.filePath("fifo").toLocal8Bit().constData(), 0600);
    for (const QString& bad : {folder.path(), folder.filePath("large"), folder.filePath("fifo"),
                               Write("nul", {"A\0B", 3}), QString("/proc/self/mem")}) {
        told.clear();
        chosen = bad;
        Do("[Ctrl+O]");
        EXPECT_TRUE(told.join('|').startsWith(bad)) << told.join('|').toStdString();
        EXPECT_TRUE(Window().IsPristine());
    }
    Do("A");
    chosen = "/proc/x.bas";
    Do("[Ctrl+S]");
    EXPECT_TRUE(told.last().endsWith("The text is still here.")) << told.last().toStdString();
    EXPECT_TRUE(Window().isWindowModified() && Window().Path().isEmpty());
    chosen = Write("a.bas", "");
    Do("[Ctrl+S]");
    QFile::remove(chosen);
    Window().LookAtFile();
    EXPECT_TRUE(Status().contains("no longer there") && Window().isWindowModified());
    Do("[Ctrl+S]");
    EXPECT_EQ(Contents("a.bas"), "A");
}

TEST_F(Files, NoChangesGoUnasked) {
    editor->OpenAll({Write("a.bas", "A"), folder.filePath("new.bas")});
    EXPECT_FALSE(QFile::exists(Window(1).Path()));
    Do("B[Ctrl+W]");
    EXPECT_EQ(editor->Windows().size(), 2u);
    answer = "Save";
    Do("[Ctrl+Q]");  // nothing changed in the first one, nothing asked
    Settle();
    EXPECT_EQ(editor->Windows().size(), 0u);
    EXPECT_EQ(Contents("new.bas"), "B");
    editor->OpenAll({});
    Window().ShowNewText("C");
    Do("[Ctrl+W]");  // no name was given
    EXPECT_EQ(told.join('|'),
              "Save the changes of new.bas?|Save the changes of new.bas?|"
              "Save the changes of New text?|save ");
}

TEST_F(Files, HaveOneWindowEach) {
    const QString path = Write("a.bas", "A"), link = folder.filePath("link");
    QFile::link(path, link);
    editor->OpenAll({path, link, folder.filePath("./a.bas"), Write("b.bas", "B")});
    EXPECT_EQ(editor->Windows().size(), 2u);
    chosen = path;
    Do("[Ctrl+Shift+S]");  // the second one under the name of the first
    EXPECT_TRUE(told.last().endsWith("is open in another window."));
    EXPECT_EQ(Contents("a.bas"), "A");
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(path), QUrl::fromLocalFile(Write("c.bas", "C"))});
    EXPECT_TRUE(Drop(Text(1).viewport(), dropped));
    EXPECT_EQ(editor->Windows().size(), 3u);
    EXPECT_EQ(Text(1).text() + Text(2).text(), "BC");
}

TEST_F(Files, ChangedByAnotherProgramAsk) {
    // Each answer, the text at once, and what is saved then.
    const char* const rows[][3] = {{"Reload", "theirs", "theirs"},
                                   {"Keep mine", "mine", "mine"},
                                   {"Show both", "mine", "theirs"},
                                   {"Later", "mine", "theirs"}};
    for (const auto& [button, atOnce, saved] : rows) {
        Open("");
        Do("mine");
        Write("a.bas", "theirs");
        told.clear();
        answer = button;
        for (int i = 0; i < 2; ++i) Window().LookAtFile();  // asks once
        EXPECT_EQ(QString::number(told.size()) + Text().text(), QString("1") + atOnce) << button;
        chosen.clear();
        Text().setFocus();
        Window().Save();
        EXPECT_EQ(Contents("a.bas"), saved) << button;
        if (answer == "Show both") {
            EXPECT_TRUE(Window().windowTitle().startsWith("a (mine).bas"));
            EXPECT_EQ(Text(1).text() + Window(1).windowTitle(), "theirsa.bas[*] - KWEdit");
        }
        CloseAll();
    }
}

TEST_F(Files, UnsavedWorkSurvivesACrash) {
    const auto copies = [this] { return Habits(setup.settingsFile).Copies(); };
    const auto crash = [this](const char* button) {
        StartAgain();
        answer = button;
        editor->OfferCopies();
    };
    Open("A");
    Do("B");
    editor->OpenAll({Write("z.bas", "Z")});
    Do("[Ctrl+N]new");
    EXPECT_TRUE(Until([&] { return copies().size() == 2; }));
    EXPECT_EQ(QFile::permissions(copies().first()) & (QFile::ReadGroup | QFile::ReadOther), 0);
    crash("Later");
    EXPECT_EQ(told.size(), 2);
    crash("Show");
    EXPECT_EQ(Text(0).text() + '|' + Text(1).text() + Contents("a.bas"), "BA|newA");
    EXPECT_TRUE(Window(0).isWindowModified() && Window(1).isWindowModified());
    Window(0).Save();
    answer = "Don't save";
    Window(1).close();
    Settle();
    EXPECT_EQ(copies().size(), 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(' '), "a.bas z.bas");
}

TEST_F(Files, OfLaterStartsGoToTheEditorThatIsOpen) {
    const QString place = Write("meet", "");  // left by an editor that is no more
    const QStringList paths = {Write("a.bas", "A"), Write("-b.bas", "B")};
    EXPECT_FALSE(HandOver(place, paths));
    bool taken = false;
    QStringList opened;
    SecondStart later(place, [&](const QStringList& files) { opened = files; });
    std::thread start([&] { taken = HandOver(place, paths); });
    EXPECT_TRUE(Until([&] { return !opened.isEmpty(); }));
    start.join();
    EXPECT_TRUE(taken);
    EXPECT_EQ(opened, paths);
}

}  // namespace

#include "editor/Editor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QStatusBar>

#include "editor/BasicLine.h"
#include "tests/support/LocalTools.h"
#include "tests/support/ScratchFolder.h"

static bool Until(const std::function<bool()>& holds) {
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 20000 && !holds();) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return holds();
}

class EditorProgram : public testing::Test {
  protected:
    QTemporaryDir folder;
    ConsolePorts ports{static_cast<quint16>(FreePort()), static_cast<quint16>(FreePort())};
    QStringList told;  // what the dialogs were asked, and what they answer
    QString chosen;
    ChangesAnswer answer = ChangesAnswer::kCancel;
    EditorDialogs dialogs{
        [this](QWidget*, const QString&) { return chosen; },
        [this](QWidget*, const QString& near) { return told += "save " + near, chosen; },
        [this](QWidget*, const QString& name) { return told += "changes of " + name, answer; },
        [this](QWidget*, const QString& sentence) { told += sentence; }};
    Editor editor{ports, dialogs};

    ~EditorProgram() override {
        answer = ChangesAnswer::kDiscard;
        for (EditorWindow* window : editor.Windows()) window->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QString Write(const char* name, const QByteArray& bytes) const {
        return ScratchFolder::Put(folder.filePath(name), bytes);
    }
    QByteArray Contents(const char* name) const {
        return ScratchFolder::Get(folder.filePath(name));
    }
    EditorWindow& First() const { return *editor.Windows().at(0); }
    void Send(const std::string& words) const {
        LocalClient client(ports.editor);
        client.Write(words);
        EXPECT_TRUE(Until([&] { return client.Read(), client.closed; })) << words;
    }
};

TEST_F(EditorProgram, SavesWhatItOpenedByteByByte) {
    QByteArray all;
    for (int i = 1; i < 256; ++i) all += i == '\r' ? ' ' : static_cast<char>(i);
    const QByteArray some =
        "|\n\n|A\r\nB\r\n|no end|\xef\xbb\xbf'\xc3\xa9\n|'\xc3\xa9 \xe2\x82\xac\xc2\xa0\n|"
        "\xe2\x80\xa9 \xc3\xa9\n|\xc3";
    const QByteArrayList rows = some.split('|') << all;
    editor.OpenAll({});
    for (const QByteArray& row : rows) {
        ASSERT_TRUE(First().OpenFile(Write("in.bas", row)));
        EXPECT_FALSE(First().isWindowModified());
        chosen = folder.filePath("out.bas");
        EXPECT_TRUE(First().SaveAs());
        EXPECT_EQ(Contents("out.bas").toHex(), row.toHex());
    }
    First().OpenFile(Write("in.bas", "\xe9\r\n"));
    First().Text()->insertPlainText(QString("\nA") + QChar(0x20AC));  // no byte for it
    EXPECT_TRUE(First().isWindowModified() && First().Save() && !First().isWindowModified());
    EXPECT_EQ(Contents("in.bas"), "\r\nA\xe2\x82\xac\xc3\xa9\r\n");
    told.clear();
    QFile(Write("large", "")).resize(kLargestText + 1);
    for (const QString& bad : {folder.path(), folder.filePath("large"), Write("nul", {"A\0B", 3})})
        EXPECT_FALSE(First().OpenFile(bad));
    chosen = folder.filePath("none/x.bas");
    EXPECT_FALSE(First().SaveAs());
    EXPECT_EQ(told.size(), 5);  // each told, and the question for a name
    EXPECT_EQ(First().Path(), folder.filePath("in.bas"));
}

TEST_F(EditorProgram, LosesNoChangesUnasked) {
    editor.OpenAll({Write("a.bas", "A"), folder.filePath("new.bas")});
    ASSERT_EQ(editor.Windows().size(), 2u);
    EditorWindow& second = *editor.Windows()[1];
    EXPECT_FALSE(QFile::exists(second.Path()));
    second.Text()->insertPlainText("B");
    EXPECT_FALSE(second.close());
    answer = ChangesAnswer::kSave;
    EXPECT_TRUE(First().close());  // nothing changed, nothing asked
    EXPECT_TRUE(second.close());
    EXPECT_EQ(told.join('|'), "changes of new.bas|changes of new.bas");
    EXPECT_EQ(Contents("new.bas"), "B");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    editor.OpenAll({});
    First().ShowNewText("C");
    EXPECT_FALSE(First().close());  // no name was given
    EXPECT_EQ(told.mid(2).join('|'), "changes of this new text|save ");
}

TEST_F(EditorProgram, SendsTheFileToTheConsole) {
    editor.OpenAll({Write("a b\xc3\xa9.bas", "A")});
    First().LoadToDevice();
    const auto status = [this] { return First().statusBar()->currentMessage(); };
    EXPECT_TRUE(Until([&] { return status().startsWith("No console on port"); }));
    int port = ports.control;
    const int console = ListenLocally(port);
    First().Text()->insertPlainText("B");
    First().LoadToDevice();
    EXPECT_TRUE(Until([&] { return status().startsWith("Sent to the console"); }));
    LocalClient client(0);
    client.Close();
    client.fd = accept(console, nullptr, nullptr);
    fcntl(client.fd, F_SETFL, O_NONBLOCK);
    client.Write("Welcome to KWCC\r\n");
    EXPECT_TRUE(Until([&] { return client.Read(), client.closed; }));
    EXPECT_EQ(client.received, "/load " + First().Path().toStdString() + "\r");
    EXPECT_EQ(Contents("a b\xc3\xa9.bas"), "BA");
    chosen = folder.filePath("two\nlines.bas");  // would reach the console as another name
    First().SaveAs();
    First().LoadToDevice();
    EXPECT_EQ(status(), "The console cannot take a file of this name.");
    close(console);
}

TEST_F(EditorProgram, OpensWhatTheConsolePutOnTheClipboard) {
    editor.OpenAll({});
    QApplication::clipboard()->setText("10 PRINT\r\n20 END\r\n");
    for (const char* junk : {"/load x\r", "\r", "/pasted\n"}) Send(junk);
    Send(std::string(100000, '/'));
    EXPECT_TRUE(First().IsPristine());
    {
        LocalClient slow(ports.editor);
        slow.Write("/PA");
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        slow.Write("STE \r");
        EXPECT_TRUE(Until([&] { return !First().IsPristine(); }));
    }
    EXPECT_EQ(First().Text()->toPlainText(), "10 PRINT\n20 END\n");
    EXPECT_TRUE(First().isWindowModified() && First().Path().isEmpty());
    Send("/paste \r");  // the same again
    EXPECT_EQ(editor.Windows().size(), 1u);
    for (int i = 0; i < kMostWindows + 5; ++i) {
        QApplication::clipboard()->setText(QString::number(i));
        Send("/paste \r");
    }
    EXPECT_EQ(editor.Windows().size(), static_cast<size_t>(kMostWindows));
    // A client that says nothing, and many of them, are let go; the port serves on.
    std::vector<std::unique_ptr<LocalClient>> silent;
    for (int i = 0; i < 20; ++i) silent.push_back(std::make_unique<LocalClient>(ports.editor));
    EXPECT_TRUE(Until([&] { return silent[0]->Read(), silent[0]->closed; }));
    Send("/paste\n");
}

TEST_F(EditorProgram, WaitsForAPortThatAnotherEditorHas) {
    PasteListener second(ports.editor, [] {});
    EXPECT_FALSE(second.Listens());
    auto third = std::make_unique<PasteListener>(ports.control, [] {});
    PasteListener fourth(ports.control, [] {});
    EXPECT_TRUE(third->Listens() && !fourth.Listens());
    third.reset();
    EXPECT_TRUE(Until([&] { return fourth.Listens(); }));
}

TEST(Editor, FindsFromTheCursorOnAndAround) {
    QPlainTextEdit text("One two ONE");
    FindBar bar(&text, nullptr);
    EXPECT_FALSE(bar.Find(false));  // nothing to look for yet: asks
    auto& words = *bar.findChild<QLineEdit*>();
    std::vector<int> places;
    for (const char* wanted : {"two", "one", "one", "ONE", "none"}) {
        words.setText(wanted);
        places.push_back(bar.Find(places.size() == 3) ? text.textCursor().selectionStart() : -1);
    }
    EXPECT_EQ(places, std::vector<int>({4, 8, 0, 8, -1}));
    EXPECT_EQ(text.textCursor().selectionStart(), 8);  // stays where it was
}

TEST(Editor, KnowsItsPortsAndItsBasic) {
    QTemporaryDir folder;
    const auto read = [&folder](const QByteArray& settings) {
        const auto ports = ReadConsolePorts(ScratchFolder::Put(folder.filePath("i"), settings));
        return std::make_pair(int(ports.control), int(ports.editor));
    };
    const std::pair<int, int> given(5, 6), usual(50899, 6832);
    EXPECT_EQ(read("\xef\xbb\xbf\n[Network]\nIP control port = 5\nKWedit control port=6\n"), given);
    EXPECT_EQ(read("[x]\nIP control port = 5\n[network]\r\nip CONTROL port = 65536\r\n"), usual);
    EXPECT_EQ(ReadConsolePorts(folder.filePath("none")).control, 50899);
    const auto cut = [](const QString& line) {
        QString result = QString(line.size(), '.');
        for (const BasicPiece& piece : CutBasicLine(line)) {
            const QChar mark = QString("KNTCD")[static_cast<int>(piece.kind)];
            result.replace(piece.start, piece.length, QString(piece.length, mark));
        }
        return result.toStdString();
    };
    EXPECT_EQ(cut("10 IF a$=\"it's\" THEN x1=-1.5E-3:'note"),
              "NN.KK....TTTTTT.KKKK.....NNNNNN.CCCCC");
    EXPECT_EQ(cut("left$(x)+&HFF+printer: REM if"), "KKKKK....NNNN..........CCCCCC");
    EXPECT_EQ(cut("'TARGET s\\pico"), "DDDDDDDDDDDDDD");
    EXPECT_EQ(cut("? \"open"), "..TTTTT");
    EXPECT_EQ(cut(""), "");
}

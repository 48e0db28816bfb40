#include "tests/editor/EditorBench.h"

namespace {

struct Tool : QTcpSocket {
    Tool(quint16 port, const QByteArray& words) {
        connectToHost(QHostAddress::LocalHost, port);
        EXPECT_TRUE(waitForConnected());
        write(words);
    }
    bool IsLetGo() const {
        return Until([this] { return state() == UnconnectedState; });
    }
};

struct WithConsole : EditorBench {
    // What the editor says to a port of the console after these keys, until it leaves.
    QByteArray Heard(const char* script, quint16 port) const {
        QTcpServer console;
        EXPECT_TRUE(console.listen(QHostAddress::LocalHost, port));
        Do(script);
        EXPECT_TRUE(Until([&] { return console.hasPendingConnections(); }));
        QTcpSocket* const client = console.nextPendingConnection();
        client->write("Welcome to KWCC\r\n");
        EXPECT_TRUE(Until([&] { return client->state() == QTcpSocket::UnconnectedState; }));
        return client->readAll();
    }
    void Send(const QByteArray& words) const {
        EXPECT_TRUE(Tool(setup.ports.editor, words).IsLetGo()) << words.toStdString();
    }
};

TEST_F(WithConsole, LoadsStoresAndStops) {
    editor->OpenAll({Write("a b\xc3\xa9.bas", "A")});
    const QByteArray path = Window().Path().toUtf8();
    EXPECT_EQ(Heard("B[F5]", setup.ports.control), "/load " + path + "\r");
    EXPECT_EQ(Contents("a b\xc3\xa9.bas"), "BA");
    EXPECT_TRUE(Status().startsWith("Sent to the console"));
    EXPECT_EQ(Heard("[Ctrl+F5]", setup.ports.control), "/store " + path + "\r");
    EXPECT_EQ(Heard("[Ctrl+F2]", setup.ports.data), "\x03");
    chosen = folder.filePath("two\nlines.bas");  // would reach the console as another name
    Do("[Ctrl+Shift+S, F5]");
    EXPECT_EQ(Status(), "The console cannot take a file of this name.");
}

TEST_F(WithConsole, StartsOneWhenNoneAnswers) {
    setup.consoleProgram = Write("KWCC", "#!/bin/sh\ntouch \"${0%KWCC}started\"\n");
    QFile::setPermissions(setup.consoleProgram, QFile::ReadOwner | QFile::ExeOwner);
    StartAgain();
    const auto started = [this] { return QFile::exists(folder.filePath("started")); };
    Open("A");
    Do("[F5]");
    EXPECT_TRUE(Until([&] { return told.size() == 1; }));
    EXPECT_FALSE(started());
    answer = "Start";
    Do("[Ctrl+F5]");
    EXPECT_TRUE(Until(started));
    EXPECT_EQ(Heard("", setup.ports.control), "/store " + Window().Path().toUtf8() + "\r");
    Do("[Ctrl+F2]");
    EXPECT_TRUE(Until([&] { return Status().startsWith("No console answers"); }));
}

TEST_F(WithConsole, OpensWhatItPutOnTheClipboard) {
    editor->OpenAll({});
    QApplication::clipboard()->setText("10 PRINT\r\n20 END\r\n");
    for (const char* junk : {"/load x\r", "/pasted\n"}) Send(junk);
    Send(QByteArray(100000, '/'));
    EXPECT_TRUE(Window().IsPristine());
    Tool slow(setup.ports.editor, "/PA");
    QApplication::processEvents(QEventLoop::AllEvents, 20);
    slow.write("STE \r");
    EXPECT_TRUE(Until([&] { return !Window().IsPristine(); }));
    EXPECT_EQ(Text().text(), "10 PRINT\n20 END\n");
    EXPECT_TRUE(Window().isWindowModified() && Window().Path().isEmpty());
    Send("/paste \r");  // the same again
    EXPECT_EQ(editor->Windows().size(), 1u);
    for (int i = 0; i < kMostWindows + 5; ++i) {
        QApplication::clipboard()->setText(QString::number(i));
        Send("/paste \r");
    }
    EXPECT_EQ(editor->Windows().size(), static_cast<size_t>(kMostWindows));
    EXPECT_NE(Window(1).pos(), Window(2).pos());
    // A client that says nothing, and many of them, are let go; the port serves on.
    std::vector<std::unique_ptr<Tool>> silent;
    for (int i = 0; i < 20; ++i) silent.push_back(std::make_unique<Tool>(setup.ports.editor, ""));
    EXPECT_TRUE(silent[0]->IsLetGo());
    Send("/paste\n");
}

TEST_F(WithConsole, ReadsThePortsOfItsSettings) {
    const std::pair<const char*, const char*> rows[] = {
        {"\xef\xbb\xbf\n[Network]\nIP control port = 5\nKWedit control port=6\nIP Data Port = 7\n",
         "5 7 6"},
        {"[x]\nIP control port = 5\n[network]\r\nip CONTROL port = 65536\r\n", "50899 50900 6832"}};
    for (const auto& [settings, read] : rows) {
        const auto ports = ReadConsolePorts(Write("i", settings));
        EXPECT_EQ(QString("%1 %2 %3").arg(ports.control).arg(ports.data).arg(ports.editor), read);
    }
}

}  // namespace

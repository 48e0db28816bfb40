#include "tests/editor/EditorBench.h"

namespace {

class WithConsole : public EditorBench {
  protected:
    // What the next client of the console's port says until it leaves.
    std::string NextWords(int console) {
        LocalClient client(0);
        client.Close();
        EXPECT_TRUE(Until([&] {
            return client.fd >= 0 || (client.fd = accept(console, nullptr, nullptr)) >= 0;
        }));
        fcntl(client.fd, F_SETFL, O_NONBLOCK);
        client.Write("Welcome to KWCC\r\n");
        EXPECT_TRUE(Until([&] { return client.Read(), client.closed; }));
        return client.received;
    }
    int Console(int port) {
        const int console = ListenLocally(port);
        fcntl(console, F_SETFL, O_NONBLOCK);
        return console;
    }
    void Send(const std::string& words) const {
        LocalClient client(setup.ports.editor);
        client.Write(words);
        EXPECT_TRUE(Until([&] { return client.Read(), client.closed; })) << words;
    }
};

TEST_F(WithConsole, LoadsStoresAndStops) {
    editor->OpenAll({Write("a b\xc3\xa9.bas", "A")});
    const std::string path = Window().Path().toStdString();
    const int console = Console(setup.ports.control), data = Console(setup.ports.data);
    Do("B[F5]");
    EXPECT_EQ(NextWords(console), "/load " + path + "\r");
    EXPECT_EQ(Contents("a b\xc3\xa9.bas"), "BA");
    EXPECT_TRUE(Status().startsWith("Sent to the console"));
    Do("[Ctrl+F5]");
    EXPECT_EQ(NextWords(console), "/store " + path + "\r");
    Do("[Ctrl+F2]");
    EXPECT_EQ(NextWords(data), "\x03");
    chosen = folder.filePath("two\nlines.bas");  // would reach the console as another name
    Do("[Ctrl+Shift+S, F5]");
    EXPECT_EQ(Status(), "The console cannot take a file of this name.");
    close(console);
    close(data);
}

TEST_F(WithConsole, StartsOneWhenNoneAnswers) {
    Open("A");
    Do("[F5]");
    EXPECT_TRUE(Until([&] { return told.size() == 1; }));
    EXPECT_TRUE(told.last().endsWith("Start one."));  // there is no program to start
    setup.consoleProgram = Write("KWCC", "#!/bin/sh\ntouch \"${0%KWCC}started\"\n");
    QFile::setPermissions(setup.consoleProgram, QFile::ReadOwner | QFile::ExeOwner);
    StartAgain();
    Open("A");
    Do("[F5]");
    EXPECT_TRUE(Until([&] { return told.size() == 2; }));
    EXPECT_FALSE(QFile::exists(folder.filePath("started")));
    answer = "Start";
    Do("[Ctrl+F5]");
    EXPECT_TRUE(Until([&] { return QFile::exists(folder.filePath("started")); }));
    const int console = Console(setup.ports.control);
    EXPECT_EQ(NextWords(console), "/store " + Window().Path().toStdString() + "\r");
    close(console);
    Do("[Ctrl+F2]");
    EXPECT_TRUE(Until([&] { return Status().startsWith("No console answers"); }));
}

TEST_F(WithConsole, OpensWhatItPutOnTheClipboard) {
    editor->OpenAll({});
    QApplication::clipboard()->setText("10 PRINT\r\n20 END\r\n");
    for (const char* junk : {"/load x\r", "\r", "/pasted\n"}) Send(junk);
    Send(std::string(100000, '/'));
    EXPECT_TRUE(Window().IsPristine());
    {
        LocalClient slow(setup.ports.editor);
        slow.Write("/PA");
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        slow.Write("STE \r");
        EXPECT_TRUE(Until([&] { return !Window().IsPristine(); }));
    }
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
    std::vector<std::unique_ptr<LocalClient>> silent;
    for (int i = 0; i < 20; ++i)
        silent.push_back(std::make_unique<LocalClient>(setup.ports.editor));
    EXPECT_TRUE(Until([&] { return silent[0]->Read(), silent[0]->closed; }));
    Send("/paste\n");
}

TEST_F(WithConsole, ReadsThePortsOfItsSettings) {
    const auto read = [this](const QByteArray& settings) {
        const auto ports = ReadConsolePorts(settings.isEmpty() ? "none" : Write("i", settings));
        return QString("%1 %2 %3").arg(ports.control).arg(ports.data).arg(ports.editor);
    };
    EXPECT_EQ(read("\xef\xbb\xbf\n[Network]\nIP control port = 5\nKWedit control port=6\n"
                   "IP Data Port = 7\n"),
              "5 7 6");
    EXPECT_EQ(read("[x]\nIP control port = 5\n[network]\r\nip CONTROL port = 65536\r\n"), read(""));
    EXPECT_EQ(read(""), "50899 50900 6832");
}

}  // namespace

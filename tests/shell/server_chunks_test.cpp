// What local tools send, from their sockets through the servers to the device, the screen
// and the loader; and what the device sends, back to them.
#include <sys/stat.h>

#include "link/Servers.h"
#include "shell/ServerChunks.h"
#include "shell/SingleInstance.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/shell/ShellRig.h"
#include "ui/WaitService.h"

namespace {

// Called in each wait of the interface thread in place of the toolkit's service.
void (*lookAtWait)() = nullptr;

class ServerChunkThreads : public testing::Test {
  protected:
    void SetUp() override {
        LinkSettings& settings = LinkSettingsForTable();
        settings.dataPort = FreePort();
        settings.controlPort = FreePort();
        settings.commsBufferSize = kSmallestCommsBuffer;  // less than a chunk
        OpenNumberedWindow(kMainWindow, 0, 0, 900, 700, "", kStandardWindowFlags);
        CanvasGadget(kTerminalCanvas, 0, 0, 900, 700, kCanvasKeyboard);
        CloseGadgetList();
        SetUpTerminal();
        StartCapture();
        SetWaitService([] { lookAtWait ? lookAtWait() : ServeToolkit(); });
        StartServers();
        ASSERT_TRUE(Until([] { return TakeCapture().startsWith("Control"); }));
    }
    void TearDown() override {
        StopServers();
        StartWaitService();
    }

    template <typename Done>
    static bool Until(Done done) {
        return ServeUntil(done, [](int32_t event) { DispatchEvent(event, EventWindow()); });
    }
    // The last client's connection is known and shown.
    static bool Known() {
        return Until([] { return TakeCapture().contains("connected- 127.0.0.1"); });
    }

    FarEnd device;
};

TEST_F(ServerChunkThreads, EachModeShowsAndForwardsItsDirections) {
    const struct {
        int mode;
        const char *clientPrefix, *deviceCapture, *firstRow, *forwarded;
    } rows[] = {
        {kModeTerminal, "", "dd", "dd \r\n", ""},
        {kModeHelper, "", "", "\r\n", "dd"},
        {kModeMonitor, "\x1b[7m", "\x1b[0m", "ccdd \r\n", "dd"},
        {kModeHexMonitor, "\x1b[7m", "\x1b[0m", " 63 63 64 64 ", "dd"},
        {kModeFileManager, "", "", "\r\n", ""},
    };
    for (const auto& row : rows) {
        SetTerminalMode(kModeHelper);  // without a welcome
        LocalClient client(linkSettings.dataPort);
        ASSERT_TRUE(Known());
        SetTerminalMode(row.mode);
        ClearTerminal(kTerminalCanvas);
        client.Write("cc");
        ASSERT_TRUE(Until([&] { return device.Read() == "cc"; }));
        EXPECT_EQ(TakeCapture(), row.clientPrefix) << row.mode;
        device.Write("dd");
        PollLink();
        EXPECT_EQ(TakeCapture(), row.deviceCapture) << row.mode;
        EXPECT_TRUE(GetTerminalText(TextPart::kVisible).startsWith(row.firstRow)) << row.mode;
        EXPECT_TRUE(Until([&] { return client.Read() == row.forwarded; })) << row.mode;
    }
}

// A device that does not read holds the tool back, not the console, and nothing is lost.
TEST_F(ServerChunkThreads, EveryByteReachesASlowDevice) {
    std::string bytes;
    for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * 11 + i / 251);
    for (const bool overTcp : {false, true}) {
        FarEnd slow(overTcp);
        LocalClient client(linkSettings.dataPort);
        size_t written = 0;
        std::string arrived;
        const auto write = [&] { written += client.Write(bytes.substr(written)); };
        ASSERT_TRUE(Until([&] { return write(), LinkRoom() == 0; }));
        for (int event; (event = WaitForEvent(100)) != kNoEvent;)
            DispatchEvent(event, EventWindow());
        ASSERT_TRUE(
            Until([&] { return write(), (arrived += slow.Read()).size() >= bytes.size(); }));
        EXPECT_EQ(arrived, bytes);
    }
}

// A command can take as long as an upload; other tools talk to the console meanwhile.
TEST_F(ServerChunkThreads, TheWorkerGoesOnBeforeItsCommandIsCarriedOut) {
    static bool workerWaits = true;
    const ScratchFolder folder;
    ScratchFolder::Put("a.bas", "PRINT 1\n");
    SetTerminalMode(kModeHelper);
    LocalClient client(linkSettings.controlPort);
    ASSERT_TRUE(Known());
    client.Write("/load a.bas\n");
    lookAtWait = [] {
        workerWaits = !FindServer(kControlServerIdentity)->text.isEmpty();
        RequestLeave(true);  // nothing more of the upload
    };
    EXPECT_TRUE(Until([] { return capture.buffer.contains("Program upload aborted"); }));
    lookAtWait = nullptr;
    RequestLeave(false);
    EXPECT_FALSE(workerWaits);
}

TEST_F(ServerChunkThreads, Commands) {
    const ScratchFolder folder;
    const QString longName = "/" + QString(4900, 'x');
    mkfifo("fifo", 0600);
    const QString refused = "File read failed!!Nothing to load.";
    const std::pair<QString, QString> cases[] = {
        {"/load \r", ""},
        {"/LOAD  my file.UF2 \r\n", "my file.UF2port not set"},
        {"/load a\r\n/load é.uf2\n", "a/load é.uf2port not set"},
        {"/Store x.uf2", "x.uf2port not set"},
        {" /load x.uf2", ""},
        {"/load .", "." + refused},
        {"/load fifo", "fifo" + refused},
        {"/load" + longName, longName + refused},
    };
    SetTerminalMode(kModeHelper);
    LocalClient client(linkSettings.controlPort);
    ASSERT_TRUE(Known());
    const auto answer = [&](const std::string& bytes) {
        client.Write(bytes);
        EXPECT_TRUE(Until([] { return capture.buffer.startsWith("Control"); }));
        return TakeCapture().mid(7);
    };
    for (const auto& [command, printed] : cases)
        EXPECT_EQ(answer(command.toStdString()), printed) << command.left(40).toStdString();
    EXPECT_EQ(answer("/load x.uf2\xFF"), "");  // no UTF-8
    StopServers();
    HandleServerChunk(kDataServerIdentity);
    EXPECT_EQ(TakeCapture(), "");
}

// A second start gives its command line to the first one's control port, in this form.
TEST(HandOver, IsALoadCommand) {
    int port = 0;
    VirtualClock clock;
    SocketEnd first, session;
    first.fd = ListenLocally(port);
    HandOver("my file.bas", port);
    session.fd = accept(first.fd, nullptr, nullptr);
    EXPECT_EQ(session.Read(), "/load my file.bas\r");
    EXPECT_TRUE(session.closed);
    EXPECT_EQ(clock.Now(), 40);  // before it is closed, and behind that
}

}  // namespace

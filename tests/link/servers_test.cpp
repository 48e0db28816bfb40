// The two servers over real sockets: lines, chunks, who is the client, and the end.
#include <deque>

#include "tests/link/link_rig.h"
#include "ui/events/InterfaceThread.h"

namespace {

// No sleep of a worker takes time, but one that is longer than this waits until it is allowed;
// and the end of the workers is waited for in a fifth of its time.
class ServersClock : public VirtualClock {
  public:
    void Sleep(int64_t ms) override {
        if (OnInterfaceThread()) usleep(useconds_t(ms * 200));
        while (!OnInterfaceThread() && ms > longest) usleep(100);
        VirtualClock::Sleep(ms);
    }
    std::atomic<int64_t> longest{0};
};

class ServerThreads : public testing::Test {
  protected:
    ~ServerThreads() override { StopServers(); }
    template <typename Done>
    bool Until(Done done) {
        return ServeUntil(done, [this](int32_t event) {
            clock.Sleep(5);
            if (event == kEventPrintLine) PrintHandedLines();
            if (event == kEventServerMessage) HandleServerMessage(EventType());
            if (event != kEventServerChunk) return;
            const ServerRecord& server = *FindServer(EventType());
            taken.append(server.buffer.begin(), server.buffer.begin() + server.length);
            if (!hold) ReleaseServerWorker(EventType());
        });
    }
    bool Says(const QString& line) {
        Until([&] { return capture.buffer.size() >= line.size(); });
        return TakeCapture() == line;
    }
    // On free ports unless told otherwise. The data server's line comes first.
    void Start(int mode, int dataPort = FreePort(), const char* outcome = " started") {
        settings.dataPort = dataPort;
        settings.controlPort = FreePort();
        SetTerminalMode(mode);
        StartCapture();
        clock.longest = 75;
        StartServers();
        EXPECT_TRUE(Says("   Data server on port " + QString::number(dataPort) + outcome));
        clock.longest = 150;
        const QString control = QString::number(settings.controlPort);
        EXPECT_TRUE(Says("Control server on port " + control + " started"));
    }
    LocalClient& Connect() {
        clients.emplace_back(settings.dataPort);
        EXPECT_TRUE(Says("\x1b[0mconnected- 127.0.0.1"));
        return clients.back();
    }
    bool Takes(LocalClient& client, const std::string& bytes) {
        taken.clear();
        client.Write(bytes);
        return Until([&] { return taken.size() >= bytes.size(); }) && taken == bytes;
    }
    bool Reaches(LocalClient& client, const std::string& bytes, const std::string& received) {
        SendToDataClient(bytes.data(), static_cast<int64_t>(bytes.size()));
        return Until([&] { return client.Read() == received; });
    }

    ServersClock clock;
    LinkSettings& settings = LinkSettingsForTable();
    std::deque<LocalClient> clients;
    std::string taken;  // bytes of the chunks
    bool hold = false;
};

// 127.0.0.2 stands for an address by which other machines reach this one.
TEST_F(ServerThreads, StartLinesAPortInUseAndWhoReachesThem) {
    for (const int local : {0, 1}) {
        const Chosen ports(&Choices::localPorts, local);
        Start(kModeTerminal);
        for (const int port : {settings.dataPort, settings.controlPort}) {
            EXPECT_EQ(LocalClient(port, INADDR_LOOPBACK + 1).connected, !local);
            EXPECT_TRUE(LocalClient(port).connected);
        }
        StopServers();
    }
    int held = 0;
    const int holder = ListenLocally(held);
    for (const int port : {held, 65536 + FreePort(), -1}) {
        Start(kModeTerminal, port, " failed");
        EXPECT_TRUE(LocalClient(settings.controlPort).connected);
        StopServers();
    }
    EXPECT_FALSE(LocalClient(settings.controlPort).connected);
    EXPECT_EQ(FindServer(kDataServerIdentity), nullptr);
    close(holder);
}

// One chunk at a time, of at most 5000 bytes, and nothing of it changes before it is taken. A
// worker whose chunk nobody takes is ended when its time is up.
TEST_F(ServerThreads, ChunksKeepTheirOrderAndWait) {
    settings.welcomeMessage = "Gruß";
    Start(kModeTerminal);
    LocalClient& client = Connect();
    EXPECT_TRUE(Reaches(client, "", "Gru\xC3\x9F\r\n"));
    std::string bytes;
    for (int i = 0; i < 12345; ++i) bytes += static_cast<char>(i * 7);
    EXPECT_TRUE(Takes(client, bytes));
    hold = true;
    ASSERT_TRUE(Takes(client, "held\xC3\xA9"));
    const ServerRecord* server = FindServer(kDataServerIdentity);
    client.Write("next");
    EXPECT_EQ(WaitForEvent(50), kNoEvent);
    const std::string buffer(server->buffer.begin(), server->buffer.end());
    EXPECT_EQ(server->text + QString::fromStdString(buffer),
              "heldéheldé" + QString(kServerBuffer - 6, QChar(0)));
    ReleaseServerWorker(kDataServerIdentity);
    EXPECT_TRUE(Until([&] { return taken == "held\xC3\xA9next"; }));
    // The loop takes no more events, so the worker never leaves its semaphore by itself.
    const int64_t before = NowMs();
    StopServers();
    const int64_t took = NowMs() - before;
    EXPECT_TRUE(took >= kServerEndWait && took < kServerEndWait + kServerKillWait) << took;
    client.Read();
    EXPECT_TRUE(client.closed && !LocalClient(settings.dataPort).connected);
}

// Device bytes reach whoever came or sent last; one that connects is known before the next
// chunk of one that streams. Whichever client goes, they reach nobody until the next event.
TEST_F(ServerThreads, TheClientIsTheLastOneHeardOf) {
    settings.debugMode = 1;
    Start(kModeHelper);
    const ServerRecord& server = *FindServer(kDataServerIdentity);
    EXPECT_EQ(fcntl(server.sockets.listener, F_GETFD), FD_CLOEXEC);  // for programs started here
    LocalClient &first = Connect(), &second = Connect(), &third = Connect();
    EXPECT_TRUE(SocketOption(server.client, IPPROTO_TCP, TCP_NODELAY));
    EXPECT_TRUE(SocketOption(server.client, SOL_SOCKET, SO_KEEPALIVE));  // a dead peer is found
    EXPECT_TRUE(Reaches(third, "came last", "came last"));
    hold = true;
    ASSERT_TRUE(Takes(first, "1"));
    EXPECT_TRUE(Reaches(first, "sent last", "sent last"));
    first.Write("2");
    const LocalClient newcomer(settings.dataPort);
    ReleaseServerWorker(kDataServerIdentity);
    ASSERT_TRUE(Until([&] { return taken == "12"; }));
    EXPECT_EQ(TakeCapture(), "\x1b[0mconnected- 127.0.0.1");
    hold = false;
    ReleaseServerWorker(kDataServerIdentity);
    second.Reset();
    ASSERT_TRUE(Says("\x1b[0mNet Disconnected"));
    SendToDataClient("lost", 4);
    ASSERT_TRUE(Takes(third, "3"));
    EXPECT_TRUE(Reaches(third, "!", "came last!"));
    EXPECT_EQ(first.Read(), "sent last");
}

// No send waits for a client that never reads, and what is kept for it is bounded. One
// client too many is let in and closed, and there is room again when one has gone.
TEST_F(ServerThreads, ClientsThatMisbehave) {
    Start(kModeHelper);
    for (int i = 0; i < kMostServerClients; ++i) Connect();
    const std::string block(65536, 'x');
    for (int i = 0; i < 400; ++i) SendToDataClient(block.data(), 65536);
    const size_t kept = clients.back().Read().size();
    EXPECT_TRUE(kept >= block.size() && kept < 400 * block.size()) << kept;
    LocalClient further(settings.dataPort);
    EXPECT_TRUE(Until([&] { return further.Read().empty() && further.closed; }));
    clients[0].Close();
    EXPECT_TRUE(Until([&] { return FindServer(kDataServerIdentity)->client == 0; }));
    EXPECT_EQ(TakeCapture(), "");  // a client that goes is told of in debug mode alone
    EXPECT_TRUE(Takes(Connect(), "room again"));
}

// A line that was not shown yet is lost to the next, and a burst of them fills no queue.
TEST_F(ServerThreads, MessagesOfABurst) {
    ServerRecord record;
    QString shown;
    for (const int burst : {300, 1}) {
        for (int i = 0; i < burst; ++i) PostServerMessage(record, QString::number(i));
        while (WaitForEvent(0) == kEventServerMessage) shown += TakeServerMessage(record) + '.';
    }
    EXPECT_EQ(shown, "299" + QString(kMostUnreadMessages, '.') + "0.");
}

}  // namespace

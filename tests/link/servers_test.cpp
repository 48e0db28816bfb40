// The two servers over real sockets on ports of their own: lines, chunks, who is the
// client, tools that misbehave, and the end.
#include <gtest/gtest.h>
#include <netinet/tcp.h>

#include <QStringList>
#include <memory>

#include "base/Numbers.h"
#include "link/LinkSettings.h"
#include "link/Servers.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "tests/support/Chosen.h"
#include "tests/support/LocalTools.h"
#include "ui/events/CurrentEvent.h"

namespace {

using Client = std::unique_ptr<LocalClient>;

const QString kGreeted = "\x1b[0mconnected- 127.0.0.1";

class ServerThreads : public testing::Test {
  protected:
    void SetUp() override {
        settings.dataPort = FreePort();
        settings.controlPort = FreePort();
        StartCapture();
    }
    void TearDown() override {
        ReleaseServerWorker(waiting);
        StopServers();
    }
    template <typename Done>
    bool Until(Done done) {
        return ServeUntil(done, [this](int32_t event) { Serve(event); });
    }
    void Serve(int32_t event) {
        if (event == kEventPrintLine) PrintHandedLines();
        if (event == kEventServerMessage) HandleServerMessage(EventType());
        const QString line = TakeCapture();
        if (!line.isEmpty()) said += line;
        if (event != kEventServerChunk) return;
        const ServerRecord* server = FindServer(EventType());
        chunks.emplace_back(server->buffer.begin(), server->buffer.begin() + server->length);
        waiting = server->identity;
        if (!hold) ReleaseServerWorker(waiting);
    }
    // Starts the servers and gives the two lines that they say.
    QStringList Start(int mode = kModeTerminal) {
        SetTerminalMode(mode);
        said.clear();
        StartServers();
        EXPECT_TRUE(Until([&] { return said.size() == 2; }));
        return std::exchange(said, {});
    }
    Client Connect() {
        auto client = std::make_unique<LocalClient>(settings.dataPort);
        EXPECT_TRUE(Until([&] { return said.contains(kGreeted); }));
        said.clear();
        return client;
    }
    bool Takes(const Client& client, const std::string& bytes) {
        const size_t before = chunks.size();
        client->Write(bytes);
        return Until([&] { return chunks.size() > before; }) && chunks.back() == bytes;
    }
    bool Has(const Client& client, const std::string& received) {
        return Until([&] { return client->Read() == received; });
    }
    static void DeviceSends(const std::string& bytes) {
        SendToDataClient(bytes.data(), static_cast<int64_t>(bytes.size()));
    }

    LinkSettings& settings = LinkSettingsForTable();
    QStringList said;  // lines printed
    std::vector<std::string> chunks;
    int64_t waiting = 0;  // identity of the server of the last chunk
    bool hold = false;
};

// 127.0.0.2 stands for an address by which other machines reach this one.
TEST_F(ServerThreads, StartLinesInOrderAPortInUseAndWhoReachesThem) {
    const in_addr_t elsewhere = INADDR_LOOPBACK + 1;
    const auto lines = [&](const char* outcome) {
        const QString port = " server on port %1 ";
        return QStringList{"   Data" + port.arg(settings.dataPort) + outcome,
                           "Control" + port.arg(settings.controlPort) + "started"};
    };
    for (const int local : {0, 1}) {
        const Chosen ports(&Choices::localPorts, local);
        EXPECT_EQ(Start(), lines("started"));
        for (const int port : {settings.dataPort, settings.controlPort}) {
            EXPECT_EQ(LocalClient(port, elsewhere).connected, !local);
            EXPECT_TRUE(LocalClient(port).connected);
        }
        TearDown();
        SetUp();
    }
    const int holder = ListenLocally(settings.dataPort);
    EXPECT_EQ(Start(), lines("failed"));
    EXPECT_TRUE(LocalClient(settings.controlPort).connected);
    for (const int port : {65536 + FreePort(), -1}) {
        StopServers();
        settings.dataPort = port;
        EXPECT_EQ(Start(), lines("failed"));
    }
    const int64_t before = NowMs();
    StopServers();
    EXPECT_LT(NowMs() - before, kServerEndWait);
    EXPECT_FALSE(LocalClient(settings.controlPort).connected);
    EXPECT_EQ(FindServer(kDataServerIdentity), nullptr);
    close(holder);
}

// One chunk at a time, of at most 5000 bytes, and nothing of it changes before it is taken.
TEST_F(ServerThreads, ChunksKeepTheirOrderAndWait) {
    settings.welcomeMessage = "Gruß";
    Start();
    const Client client = Connect();
    EXPECT_TRUE(Has(client, "Gru\xC3\x9F\r\n"));
    std::string bytes, all;
    for (int i = 0; i < 12345; ++i) bytes += static_cast<char>(i * 7);
    client->Write(bytes);
    ASSERT_TRUE(Until([&] {
        for (const std::string& chunk : chunks) all += chunk;
        chunks.clear();
        return all.size() >= bytes.size();
    }));
    EXPECT_EQ(all, bytes);
    hold = true;
    ASSERT_TRUE(Takes(client, "held\xC3\xA9"));
    const ServerRecord* server = FindServer(kDataServerIdentity);
    client->Write("next");
    EXPECT_EQ(WaitForEvent(50), kNoEvent);
    const std::string buffer(server->buffer.begin(), server->buffer.end());
    EXPECT_EQ(server->text + QString::fromStdString(buffer),
              "heldéheldé" + QString(kServerBuffer - 6, QChar(0)));
    ReleaseServerWorker(waiting);
    EXPECT_TRUE(Until([&] { return chunks.back() == "next"; }));
}

// Device bytes reach whoever came or sent last; one that connects is known before the next
// chunk of one that streams. Whichever client goes, they reach nobody until the next event.
TEST_F(ServerThreads, TheClientIsTheLastOneHeardOf) {
    settings.debugMode = 1;
    Start(kModeHelper);
    const ServerRecord& server = *FindServer(kDataServerIdentity);
    EXPECT_EQ(fcntl(server.sockets.listener, F_GETFD), FD_CLOEXEC);  // for programs started here
    const Client first = Connect(), second = Connect(), third = Connect();
    for (const bool each : {false, true}) {  // bytes go at once, a dead peer is found
        int on = 0;
        socklen_t size = sizeof on;
        getsockopt(server.client, each ? SOL_SOCKET : IPPROTO_TCP,
                   each ? SO_KEEPALIVE : TCP_NODELAY, &on, &size);
        EXPECT_TRUE(on);
    }
    DeviceSends("to the last that came");
    EXPECT_TRUE(Has(third, "to the last that came"));
    hold = true;
    ASSERT_TRUE(Takes(first, "1"));
    DeviceSends("to the last that sent");
    EXPECT_TRUE(Has(first, "to the last that sent"));
    first->Write("2");
    const LocalClient newcomer(settings.dataPort);
    ReleaseServerWorker(waiting);
    ASSERT_TRUE(Until([&] { return chunks.back() == "2"; }));
    EXPECT_TRUE(said.contains(kGreeted));
    hold = false;
    ReleaseServerWorker(waiting);
    second->Reset();
    ASSERT_TRUE(Until([&] { return said.contains("\x1b[0mNet Disconnected"); }));
    DeviceSends("lost");
    ASSERT_TRUE(Takes(third, "3"));
    DeviceSends("!");
    EXPECT_TRUE(Has(third, "to the last that came!"));
    EXPECT_EQ(first->Read(), "to the last that sent");
}

// No send waits for a client that never reads, and what is kept for it is bounded. One
// client too many is let in and closed, and there is room again when one has gone.
TEST_F(ServerThreads, ClientsThatMisbehave) {
    Start(kModeHelper);
    std::vector<Client> clients;
    for (int i = 0; i < kMostServerClients; ++i) clients.push_back(Connect());
    const std::string block(65536, 'x');
    for (int i = 0; i < 400; ++i) DeviceSends(block);
    const size_t kept = clients.back()->Read().size();
    EXPECT_TRUE(kept >= block.size() && kept < 400 * block.size()) << kept;
    EXPECT_TRUE(Until([&] {
        DeviceSends("again");
        return clients.back()->Read().find("again") != std::string::npos;
    }));
    LocalClient further(settings.dataPort);
    EXPECT_TRUE(Until([&] { return further.Read().empty() && further.closed; }));
    clients[0]->Close();
    EXPECT_TRUE(Until([&] { return FindServer(kDataServerIdentity)->client == 0; }));
    EXPECT_TRUE(said.isEmpty());  // a client that goes is told of in debug mode alone
    EXPECT_TRUE(Takes(Connect(), "room again"));
}

// The loop takes no more events, so the worker never leaves its semaphore by itself.
TEST_F(ServerThreads, AParkedWorkerIsEndedWhenItsTimeIsUp) {
    Start();
    const Client client = Connect();
    hold = true;
    ASSERT_TRUE(Takes(client, "never taken"));
    const int64_t before = NowMs();
    StopServers();
    const int64_t took = NowMs() - before;
    EXPECT_TRUE(took >= kServerEndWait && took < kServerEndWait + kServerKillWait) << took;
    client->Read();
    EXPECT_TRUE(client->closed && !LocalClient(settings.dataPort).connected);
}

}  // namespace

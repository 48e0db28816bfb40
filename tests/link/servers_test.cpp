// The two servers over real sockets on ports of their own: lines, chunks, who is the
// client, tools that misbehave, and the end.
#include <gtest/gtest.h>

#include <QStringList>
#include <functional>
#include <memory>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkSettings.h"
#include "link/Servers.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "tests/support/LocalSockets.h"
#include "ui/InterfaceEvent.h"
#include "ui/WaitWindowEvent.h"

namespace {

constexpr int64_t kDeadline = 20000;  // milliseconds; never reached when all is well

class ServerThreads : public testing::Test {
  protected:
    void SetUp() override {
        settings.dataPort = FreePort();
        settings.controlPort = FreePort();
        StartCapture();
    }
    void TearDown() override {
        Release();
        StopServers();
    }
    void Start() {
        StartServers();
        ASSERT_TRUE(Until([&] { return said.size() == 2; }));
        said.clear();
    }

    // Serves events until `done` holds.
    bool Until(const std::function<bool()>& done) {
        for (const int64_t end = NowMs() + kDeadline; !done(); Serve(WaitForEvent(5))) {
            if (NowMs() > end) return false;
        }
        return true;
    }
    void Serve(int32_t event) {
        if (event == kEventPrintLine) PrintHandedLines();
        if (event == kEventServerMessage) HandleServerMessage(EventType());
        const QString line = TakeCapture();
        if (!line.isEmpty()) said += line;
        if (event != kEventServerChunk) return;
        const ServerRecord* server = FindServer(EventType());
        ASSERT_TRUE(server);
        waiting = server->identity;
        ASSERT_GT(server->length, 0);
        chunks.emplace_back(server->buffer.begin(), server->buffer.begin() + server->length);
        if (!hold) Release();
    }
    void Release() {
        if (waiting) ReleaseServerWorker(waiting);
        waiting = 0;
    }
    std::unique_ptr<LocalClient> Connect(int port) {
        auto client = std::make_unique<LocalClient>(port);
        EXPECT_TRUE(Until([&] { return said.contains("\x1b[0mconnected- 127.0.0.1"); }));
        said.clear();
        return client;
    }
    bool Takes(LocalClient& client, const std::string& bytes) {
        const size_t before = chunks.size();
        client.Write(bytes);
        return Until([&] { return chunks.size() > before; }) && chunks.back() == bytes;
    }
    static void DeviceSends(const std::string& bytes) {
        SendToDataClient(bytes.data(), static_cast<int64_t>(bytes.size()));
    }
    bool Has(LocalClient& client, const std::string& received) {
        return Until([&] { return client.Read() == received; });
    }

    LinkSettings& settings = LinkSettingsForTable();
    QStringList said;  // lines printed
    std::vector<std::string> chunks;
    int64_t waiting = 0;  // identity of the server whose worker waits
    bool hold = false;
};

}  // namespace

TEST_F(ServerThreads, StartLinesInOrderAndAPortInUse) {
    const auto line = [](const char* label, int port, const char* outcome) {
        return label + (" server on port " + QString::number(port)) + outcome;
    };
    StartServers();
    ASSERT_TRUE(Until([&] { return said.size() == 2; }));
    EXPECT_EQ(said, (QStringList{line("   Data", settings.dataPort, " started"),
                                 line("Control", settings.controlPort, " started")}));
    said.clear();
    StopServers();
    EXPECT_FALSE(LocalClient(settings.dataPort).connected);

    const int holder = ListenLocally(settings.dataPort);
    StartServers();
    ASSERT_TRUE(Until([&] { return said.size() == 2; }));
    EXPECT_EQ(said, (QStringList{line("   Data", settings.dataPort, " failed"),
                                 line("Control", settings.controlPort, " started")}));
    close(holder);
    EXPECT_TRUE(LocalClient(settings.controlPort).connected);
    const int64_t before = NowMs();
    StopServers();
    StopServers();
    EXPECT_LT(NowMs() - before, kServerEndWait);
    EXPECT_EQ(FindServer(kDataServerIdentity), nullptr);
}

TEST_F(ServerThreads, WelcomeInTerminalModeAlone) {
    settings.welcomeMessage = "Gruß";
    Start();
    for (const int port : {settings.dataPort, settings.controlPort}) {
        SetTerminalMode(kModeTerminal);
        const auto first = Connect(port);
        EXPECT_TRUE(Has(*first, "Gru\xC3\x9F\r\n"));
        SetTerminalMode(kModeHelper);
        const auto second = Connect(port);
        EXPECT_TRUE(Takes(*second, "x"));  // so a welcome would have come by now
        EXPECT_EQ(second->Read(), "");
    }
}

// One chunk at a time, of at most 5000 bytes, and nothing of it changes before it is taken.
TEST_F(ServerThreads, ChunksKeepTheirOrderAndWait) {
    Start();
    const auto client = Connect(settings.dataPort);
    std::string bytes;
    for (int i = 0; i < 12345; ++i) bytes += static_cast<char>(i * 7);
    client->Write(bytes);
    const auto all = [&] {
        std::string text;
        for (const std::string& chunk : chunks) text += chunk;
        return text;
    };
    ASSERT_TRUE(Until([&] { return all().size() >= bytes.size(); }));
    EXPECT_EQ(all(), bytes);
    for (const std::string& chunk : chunks) EXPECT_LE(chunk.size(), size_t{kServerBuffer});

    hold = true;
    ASSERT_TRUE(Takes(*client, "held\xC3\xA9"));
    const ServerRecord* server = FindServer(kDataServerIdentity);
    EXPECT_EQ(server->text, "heldé");
    client->Write("next");
    EXPECT_EQ(WaitForEvent(50), kNoEvent);
    const std::string buffer(server->buffer.begin(), server->buffer.end());
    EXPECT_EQ(buffer, "held\xC3\xA9" + std::string(kServerBuffer - 6, '\0'));
    Release();
    ASSERT_TRUE(Until([&] { return chunks.back() == "next"; }));
}

// Device bytes reach whoever came or sent last. Whichever client goes, they reach nobody
// until the next event.
TEST_F(ServerThreads, TheClientIsTheLastOneHeardOf) {
    SetTerminalMode(kModeHelper);
    settings.debugMode = 1;
    Start();
    const auto first = Connect(settings.dataPort);
    const auto second = Connect(settings.dataPort);
    const auto third = Connect(settings.dataPort);
    DeviceSends("to the last that came");
    EXPECT_TRUE(Has(*third, "to the last that came"));
    ASSERT_TRUE(Takes(*first, "1"));
    DeviceSends("to the last that sent");
    EXPECT_TRUE(Has(*first, "to the last that sent"));

    second->Reset();
    ASSERT_TRUE(Until([&] { return said.contains("\x1b[0mNet Disconnected"); }));
    DeviceSends("lost");
    ASSERT_TRUE(Takes(*third, "3"));
    DeviceSends("!");
    EXPECT_TRUE(Has(*third, "to the last that came!"));
    EXPECT_EQ(first->Read(), "to the last that sent");
}

// A client that never reads costs nothing but its own bytes: no send waits for it, and
// once it reads again it is served again.
TEST_F(ServerThreads, AClientThatNeverReads) {
    SetTerminalMode(kModeHelper);
    Start();
    const auto client = Connect(settings.dataPort);
    const std::string block(65536, 'x');
    for (int i = 0; i < 400; ++i) DeviceSends(block);
    const size_t kept = client->Read().size();
    EXPECT_GE(kept, block.size());
    EXPECT_LT(kept, 400 * block.size());
    EXPECT_TRUE(Until([&] {
        DeviceSends("again");
        return client->Read().find("again") != std::string::npos;
    }));
}

TEST_F(ServerThreads, AClientTooManyIsClosedAtOnce) {
    Start();
    std::vector<std::unique_ptr<LocalClient>> clients;
    for (int i = 0; i < kMostServerClients; ++i) clients.push_back(Connect(settings.dataPort));
    LocalClient further(settings.dataPort);
    EXPECT_TRUE(Until([&] { return further.Closed(); }));
    EXPECT_TRUE(said.isEmpty());
    EXPECT_FALSE(clients[0]->Closed());
    clients[0]->Close();
    EXPECT_TRUE(Until([&] { return FindServer(kDataServerIdentity)->client == 0; }));
    EXPECT_TRUE(Takes(*clients.back(), "still served"));
    EXPECT_TRUE(said.isEmpty());  // a client that goes is told of in debug mode alone
    EXPECT_TRUE(Takes(*Connect(settings.dataPort), "room again"));
}

// The loop takes no more events, so the worker never leaves its semaphore by itself.
TEST_F(ServerThreads, AParkedWorkerIsEndedWhenItsTimeIsUp) {
    Start();
    const auto client = Connect(settings.dataPort);
    hold = true;
    ASSERT_TRUE(Takes(*client, "never taken"));
    const int64_t before = NowMs();
    StopServers();
    const int64_t took = NowMs() - before;
    EXPECT_GE(took, kServerEndWait);
    EXPECT_LT(took, kServerEndWait + kServerKillWait);
    EXPECT_TRUE(client->Closed());
    EXPECT_FALSE(LocalClient(settings.dataPort).connected);
    EXPECT_FALSE(LocalClient(settings.controlPort).connected);
}

// What local tools send, from their sockets through the servers to the device, the screen
// and the loader; and what the device sends, back to them.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <functional>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/Servers.h"
#include "shell/Dispatch.h"
#include "shell/Poll.h"
#include "shell/ServerChunks.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/support/FarEnd.h"
#include "tests/support/LocalSockets.h"
#include "ui/CanvasGadget.h"
#include "ui/InterfaceEvent.h"
#include "ui/WaitWindowEvent.h"
#include "ui/Windows.h"

namespace {

constexpr int64_t kDeadline = 20000;  // milliseconds

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
        AllocateLinkBuffers();
        StartCapture();
        StartServers();
        ASSERT_TRUE(Until([] { return capture.buffer.count("started") == 2; }));
    }
    void TearDown() override { StopServers(); }

    static bool Until(const std::function<bool()>& done) {
        for (const int64_t end = NowMs() + kDeadline; !done();) {
            if (NowMs() > end) return false;
            const int32_t event = WaitForEvent(5);
            if (event != kNoEvent) DispatchEvent(event, EventWindow());
        }
        return true;
    }
    // A client whose connection is known and shown, in a mode without a welcome.
    static bool Known() {
        return Until([] { return TakeCapture().contains("connected- 127.0.0.1"); });
    }
    // The first cells of the first row, "." for an empty one.
    static QString FirstCells(int count) {
        QString text;
        for (int column = 1; column <= count; ++column) {
            const char16_t ch = TerminalLineAt(terminalScreen.topLine + 1)->cells[column].ch;
            text += ch ? QChar(ch) : QChar('.');
        }
        return text;
    }

    FarEnd device;
};

}  // namespace

TEST_F(ServerChunkThreads, BytesReachTheDeviceUnchanged) {
    LocalClient client(linkSettings.dataPort);
    std::string bytes;
    for (int i = 0; i < 20000; ++i) bytes += static_cast<char>(i * 11);
    client.Write(bytes);
    std::string arrived;
    ASSERT_TRUE(Until([&] { return (arrived += device.Read()).size() >= bytes.size(); }));
    EXPECT_EQ(arrived, bytes);
}

TEST_F(ServerChunkThreads, EachModeShowsAndForwardsItsDirections) {
    const struct {
        int mode;
        const char* shownOfClient;  // fed to the terminal in front of its bytes
        const char* shownOfDevice;
        const char* cells;  // columns 1 to 6
        bool forwards;
    } rows[] = {
        {kModeTerminal, "", "dd", "dd....", false},
        {kModeHelper, "", "", "......", true},
        {kModeMonitor, "\x1b[7m", "\x1b[0m", "ccdd..", true},
        {kModeHexMonitor, "\x1b[7m", "\x1b[0m", ".63.63", true},
        {kModeFileManager, "", "", "......", false},
    };
    for (const auto& row : rows) {
        SetTerminalMode(kModeHelper);
        LocalClient client(linkSettings.dataPort);
        ASSERT_TRUE(Known());
        SetTerminalMode(row.mode);
        ClearTerminal(kTerminalCanvas);
        client.Write("cc");
        ASSERT_TRUE(Until([&] { return device.Read() == "cc"; }));
        EXPECT_EQ(TakeCapture(), row.shownOfClient) << row.mode;
        device.Write("dd");
        PollLink();
        EXPECT_EQ(TakeCapture(), row.shownOfDevice) << row.mode;
        EXPECT_EQ(FirstCells(6), row.cells) << row.mode;
        const std::string forwarded = row.forwards ? "dd" : "";
        EXPECT_TRUE(Until([&] { return client.Read() == forwarded; })) << row.mode;
    }
}

TEST_F(ServerChunkThreads, Commands) {
    const QTemporaryDir folder;
    const QString fifo = folder.path() + "/fifo";
    mkfifo(fifo.toLocal8Bit().constData(), 0600);
    const QString refused = "File read failed!!Nothing to load.";
    const QString longName(4900, 'x');
    const std::pair<QString, QString> cases[] = {
        {"/load \r", ""},
        {"/LOAD  my file.UF2 \r\n", "my file.UF2port not set"},
        {"/loadx.uf2", "x.uf2port not set"},
        {"/load a\r\n/load b.uf2\n", "a/load b.uf2port not set"},
        {"/load é.uf2", "é.uf2port not set"},
        {"/cmdfoo", ""},
        {"/CMD/load x.uf2", ""},
        {"load x.uf2", ""},
        {" /load x.uf2", ""},
        {"/load " + folder.path(), folder.path() + refused},
        {"/load " + fifo, fifo + refused},
        {"/load " + folder.path() + "/no/file", folder.path() + "/no/file" + refused},
        {"/load /" + longName, "/" + longName + refused},
    };
    SetTerminalMode(kModeHelper);
    LocalClient client(linkSettings.controlPort);
    ASSERT_TRUE(Known());
    const auto answer = [&](const std::string& bytes) {
        client.Write(bytes);
        EXPECT_TRUE(Until([] { return capture.buffer.startsWith("Control"); }));
        return TakeCapture().mid(7);
    };
    for (const auto& [command, printed] : cases) {
        EXPECT_EQ(answer(command.toStdString()), printed) << command.left(40).toStdString();
    }
    EXPECT_EQ(answer("/load x.uf2\xFF"), "");  // no UTF-8
    EXPECT_EQ(answer(std::string("/load x.uf2\0/load y", 19)), "x.uf2port not set");
    EXPECT_EQ(device.Read(), "");
}

TEST_F(ServerChunkThreads, OtherIdentities) {
    TakeCapture();
    HandleServerChunk(kControlServerIdentity + 1);
    HandleServerMessage(kControlServerIdentity + 1);
    EXPECT_EQ(TakeCapture(), "Other");
    StopServers();
    HandleServerChunk(kDataServerIdentity);
    EXPECT_EQ(TakeCapture(), "");
}

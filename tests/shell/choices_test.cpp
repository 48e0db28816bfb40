// What the group [Choices] changes in the whole program, each choice both ways.
#include <pty.h>

#include "tests/shell/ShellRig.h"

namespace {

using namespace std::string_literals;

struct ChoicesTest : ShellRig {
    ChoicesTest() { BuildWindow(), Drain(); }
};

// A WebMite's greeting, a line end, a command, a subnegotiation and a 255 that is text.
const std::string kCoded =
    "\xFF\xFB\x03\xFF\xFD\x22\xFF\xFE\x22\0A\r\0\n\xFF\xF1"
    "\xFF\xFA\x18\xFF\xFFx\xFF\xF0\xFF\xFA\x18\xFF\xFD\x01"
    "B\xFF\xFF>"s;
const std::string kRefusals = "\xFF\xFE\x03\xFF\xFC\x22\xFF\xFC\x01";

TEST_F(ChoicesTest, TelnetLineEndsWhereverTheBlocksAreCut) {
    FarEnd board(true);
    const auto reply = [&](const std::string& first, const std::string& rest) {
        clock.onTick = [&, start = clock.Now()](int64_t now) {
            if (now == start + 1) board.Write(first);
            if (now == start + 21) board.Write(rest);
        };
        const QString text = SendAndWait("", kWaitForPrompt);
        clock.onTick = nullptr;
        return text.toLatin1().toStdString();
    };
    EXPECT_EQ(reply(kCoded, ""), kTimeout.toStdString());  // it ends at the 0
    const Chosen plain(&Choices::telnetLineEnds);
    for (size_t cut = 0; cut <= kCoded.size(); ++cut) {
        EXPECT_EQ(reply(kCoded.substr(0, cut), kCoded.substr(cut)), "A\r\nB\xFF>") << cut;
        EXPECT_EQ(board.Read(), kRefusals) << cut;
    }
    const std::string endless = "\xFF\xFA" + std::string(1024, '?');
    EXPECT_EQ(reply(endless + "a", "b>"), "ab>");
    const QByteArray flood = QByteArray("\xFF\xFD\x01").repeated(300);
    EXPECT_EQ(reply(flood.toStdString(), ">"), ">");
    EXPECT_EQ(board.Read().size(), 3U * 64);
    board.Write(endless.substr(0, 9));
    PollLink();
    FarEnd next(true);  // begins anew
    next.Write("c>");
    EXPECT_EQ(SendAndWait("", 1), "c>");
    // The coding is taken off text alone.
    const auto shown = [&](int mode) {
        SetTerminalMode(mode);
        ClearTerminal(kTerminalCanvas);
        next.Write("A\xFF\xFB\x03\r\0\nB"s);
        PollLink();
        EXPECT_EQ(next.Read(), mode == kModeHexMonitor ? "" : "\xFF\xFE\x03");
        return Visible().simplified();
    };
    EXPECT_EQ(shown(kModeTerminal), "A B");
    EXPECT_EQ(shown(kModeMonitor), "A B");
    EXPECT_TRUE(shown(kModeHexMonitor).startsWith("41 FF FB 03 0D 00 0A 42 "));
    FarEnd serial;
    serial.Write("A\xFF\xFB\x03");
    EXPECT_EQ(SendAndWait("", 1), "A\u00FF\u00FB\u0003");
}

// A name that leads to a pseudo-terminal, as long as that is plugged in.
struct Cable {
    Cable() { Plug(); }
    ~Cable() { Pull(); }
    void Plug() {
        int slave = -1;
        openpty(&master, &slave, nullptr, nullptr, nullptr);
        (void)!symlink(ttyname(slave), "board");
        close(slave);
    }
    void Pull() {
        close(std::exchange(master, -1));
        unlink("board");
    }
    int master = -1;
};

TEST_F(ChoicesTest, FollowTheCable) {
    const QString board = ".." + QDir::currentPath() + "/board";  // from /dev/
    Cable cable;
    AdoptSerialLink(0);
    SetComPort(board);
    const auto polled = [&](int64_t ms) {
        StartCapture();
        clock.Sleep(ms);
        PollLink();
        return TakeCapture();
    };
    SetSerialSpeed("");
    const QString gone = "\x1b[7mDisconnected\x1b[0m";
    const QString back = "\x1b[7mConnected to " + board + " at \x1b[0m";
    for (int follows = 0; follows < 2; ++follows) {
        const Chosen follow(&Choices::followCable, follows);
        ConnectDevice();
        cable.Pull();
        EXPECT_EQ(polled(0), follows ? gone : "");
        EXPECT_EQ(linkStatus.linkConnected, !follows);
        cable.Plug();
        EXPECT_EQ(polled(999), "");
        EXPECT_EQ(polled(1), follows ? back : "");
        DisconnectDevice();
        EXPECT_EQ(polled(5000), "");  // the user's own word
    }
    const Chosen follow(&Choices::followCable);
    ConnectDevice();
    cable.Pull();
    polled(0);
    SetComPort("ttyUSB9");  // the user has gone on
    polled(0);
    cable.Plug();
    SetComPort(board);
    EXPECT_EQ(polled(5000), "");
    FarEnd peer(true);
    peer.Write("last words");
    peer.Close();
    EXPECT_EQ(polled(0), "last words");
    EXPECT_EQ(polled(0), gone);
    EXPECT_EQ(polled(5000), "");
}

TEST_F(ChoicesTest, ReadAsItComes) {
    for (const int timer : {kPollTimer, kDeferredLoadTimer}) RemoveWindowTimer(kMainWindow, timer);
    const auto comes = [&](size_t count) {
        StartCapture();
        device.Write(std::string(count, 'x'));
        Drain();
        return TakeCapture().size();
    };
    PollLink();
    EXPECT_EQ(comes(1), 0);
    const Chosen at_once(&Choices::readAsItComes);
    PollLink();
    PollLink();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(comes(1), 1);
    EXPECT_EQ(comes(193), 193);  // 513 bytes are a stream, as 64 count for each
    EXPECT_EQ(comes(1), 0);
    clock.Sleep(linkSettings.pollingInterval);
    PollLink();
    for (int i = 0; i < 9; ++i) EXPECT_EQ(comes(1), i < 8);  // one was left
    clock.Sleep(linkSettings.pollingInterval);
    PollLink();
    EXPECT_EQ(comes(100000), 100000);  // whole blocks, and what is behind them
    EXPECT_EQ(comes(1), 1);
    clock.Sleep(linkSettings.pollingInterval);
    SetQueueBusy(true);
    EXPECT_EQ(comes(1), 0);
    SetQueueBusy(false);
    EXPECT_EQ(comes(1), 0);
    PollLink();
    device.Close();
    EXPECT_EQ(comes(0), 0);  // and ends
}

}  // namespace

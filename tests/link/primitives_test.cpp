// Bytes out and in, the waits for a reply, and the listing's way to the editor.
#include <climits>
#include <map>
#include <thread>

#include "tests/link/link_rig.h"

namespace {

void UseBlocksOf(int size) {
    LinkSettingsForTable().commsBufferSize = size;
    AllocateLinkBuffers();
}

TEST(Primitives, BytesOverBothTransports) {
    char block[6] = "-----";
    for (const bool overTcp : {false, true}) {
        SetDeviceOnTcpip(overTcp);
        EXPECT_EQ(SendText(""), 0);
        EXPECT_EQ(SendText("x") + SendByte(0) + ReceiveBytes(block, 5), -3);
        EXPECT_EQ(LinkRoom(), INT_MAX);
        FarEnd device(overTcp);
        EXPECT_EQ(LinkRoom(), overTcp ? INT_MAX : 2048);
        EXPECT_EQ(SendBytes("a\0b", 3), 3);
        for (const int value : {256, 255, 0, -7}) EXPECT_EQ(SendByte(value), value > 0) << value;
        EXPECT_EQ(device.Read(), std::string("a\0b\0\xFF", 5));
        EXPECT_EQ(ReceiveBytes(block, 5), 0);
        device.Write("1234");
        for (const auto& [most, count] : {std::pair(0, 0), {-1, 0}, {3, 3}, {5, 1}})
            EXPECT_EQ(ReceiveBytes(block, most), count) << most;
        EXPECT_STREQ(block, "423--");
        SetDeviceOnTcpip(!overTcp);  // a link on the other transport
        EXPECT_EQ(SendByte(0), 0);
        EXPECT_EQ(SendByte('a'), -1);
        SetDeviceOnTcpip(overTcp);
        device.Close();  // reads like a quiet line
        EXPECT_EQ(ReceiveBytes(block, 5), 0);
        EXPECT_TRUE(!overTcp || SendText("no signal ends the program") == -1);
    }
}

TEST(Primitives, TextOut) {
    for (const auto& [asked, size] : {std::pair(65537, 65536), {2047, 2048}}) {
        UseBlocksOf(asked);
        EXPECT_EQ(LinkBufferSize(), size);
    }
    FarEnd device;
    std::string bytes;
    for (int unit = 0; unit < 256; ++unit) bytes += static_cast<char>(unit);
    SendText(QString::fromLatin1(bytes.data(), 256));
    EXPECT_EQ(device.Read(), bytes);
    // Around the block's size: whole and in order, then the 0 byte; the count stands.
    for (const int length : {2047, 2048, 2049, 3 * 2048 + 5}) {
        std::string text(length, ' ');
        for (int i = 0; i < length; ++i) text[i] = static_cast<char>('a' + i % 26);
        EXPECT_EQ(SendText(QString::fromStdString(text)), length);
        EXPECT_EQ(device.Read(), text);
        EXPECT_EQ(SendText("→→" + QString::fromStdString(text)), length + 2);
        EXPECT_EQ(device.Read().substr(0, length + 1), text + '\0');
    }
    // What the kernel does not take is lost.
    const int64_t taken = SendText(QString(4 << 20, 'x'));
    EXPECT_LT(taken, 4 << 20);
    EXPECT_EQ(SendText("lost") + LinkRoom(), 0);
    EXPECT_EQ(device.Read(), std::string(taken, 'x'));
}

// What a wait gives, and the milliseconds that it took, when these bytes come at these times.
QString Wait(int64_t delay, const std::map<int, std::string>& comes, bool overTcp = false) {
    VirtualClock clock;
    FarEnd device(overTcp);
    clock.onTick = [&](int64_t now) {
        if (comes.count(int(now))) device.Write(comes.at(int(now)));
    };
    const QString reply = SendAndWait("NEW", delay);
    EXPECT_EQ(device.Read(), "NEW");
    return reply + '|' + QString::number(clock.Now());
}

TEST(Waits, StepsTerminatorsAndWhatOneReadHolds) {
    const QString late = "***TIMEOUT***";
    LinkSettingsForTable().lineDelay = 150;
    for (const bool overTcp : {false, true}) {
        EXPECT_EQ(Wait(kWaitForLine, {{1, "ok> "}, {20, "\n"}}, overTcp), "ok> \n|20");
        EXPECT_EQ(Wait(kWaitForLine, {{21, "\n>"}, {41, "x"}}, overTcp), "\n>|40");
    }
    EXPECT_EQ(Wait(kWaitForPrompt, {{1, "ok\r\n"}, {3980, ">"}}), "ok\r\n>|3980");
    EXPECT_EQ(Wait(kWaitForPrompt, {{3981, ">"}}), late + "|4000");
    EXPECT_EQ(Wait(-99, {{1, "ok\r\n"}, {4021, ">"}}), late + "|4020");
    EXPECT_EQ(Wait(100, {{100, "a"}, {101, "b"}}), "a|100");
    EXPECT_EQ(Wait(0, {{150, "a"}}), "a|150");
    EXPECT_EQ(Wait(30, {}), "|30");
    // 8-bit characters, and nothing behind a 0 byte of the same read.
    EXPECT_EQ(Wait(kWaitForPrompt, {{1, std::string("\x80\xFFz\0lost>", 9)}, {50, "more>"}}),
              QString::fromLatin1("\x80\xFFzmore>|60"));
    // At most 5120 bytes, and no more than the block holds.
    for (const int size : {65536, 2048}) {
        UseBlocksOf(size);
        EXPECT_EQ(Wait(1, {{1, std::string(6000, 'r')}}).size(), std::min(size, 5120) + 2);
    }
    LinkSettingsForTable().lineDelay = 0;  // makes a delay of 0 a wait for the prompt
    EXPECT_EQ(Wait(0, {{1, "echo\n>"}}), "echo\n>|20");
}

TEST(CommandLine, CutsTwoLineEndCharactersAndPrints) {
    VirtualClock clock;
    FarEnd device;
    SetLineEnding("CR");
    for (const auto& [reply, shown] :
         {std::pair("a\r\n\r\n", "a\r\n"), {"\n", ""}, {"a\r\nb", "a\r\nb"}}) {
        device.Write(reply);
        StartCapture();
        EXPECT_EQ(SendCommandLine("RUN", true), "");
        EXPECT_EQ(TakeCapture(), shown);
        EXPECT_EQ(device.Read(), "RUN\r");
    }
}

// A key typed while a worker stages its command must not end up inside it.
TEST(Threads, AWorkerOnALinkThatIsClosed) {
    FarEnd device(true);
    const uint8_t* const staging = TxBuffer();
    std::thread worker([&] {
        EXPECT_NE(TxBuffer(), staging);
        while (SendBytes(TxBuffer(), LinkBufferSize()) > 0) {
        }
    });
    while (LinkRoom() > 0) std::this_thread::yield();
    AdoptTcpLink(0);
    worker.join();
    EXPECT_EQ(SendByte('x'), -1);
}

TEST(SendListing, CutsTheEchoAndTellsAnEditorThatRuns) {
    VirtualClock clock;
    FarEnd device;
    int& port = LinkSettingsForTable().editorPort;
    const int editor = ListenLocally(port);
    for (const auto& [captured, listing] : {std::pair<QString, QString>  //
                                            {"LIST ALL\r\n10 PRINT\r\n> ", "10 PRINT\r\n> "},
                                            {"LIST ALL\r\r\n10>", "\n10>"},
                                            {"LIST ALL10 PRINT\r\n>", "0 PRINT\r\n>"},
                                            {"ALL\r\n>", ""}}) {
        RequestListing();
        EXPECT_EQ(device.Read(), "LIST ALL\r\n");
        TerminalFeed(captured.left(3));
        FinishSendListing();  // not all has come: nothing is done
        TerminalFeed(captured.mid(3));
        FinishSendListing();
        FinishSendListing();   // once
        CaptureText("later");  // capture stays on, the listing in it
        EXPECT_EQ(ClipboardText() + TakeCapture(), listing + listing + "later");
        const int session = accept(editor, nullptr, nullptr);
        char bytes[32] = "";
        EXPECT_EQ(recv(session, bytes, sizeof bytes, MSG_WAITALL), 8);  // closed behind it
        EXPECT_STREQ(bytes, "/paste \r");
        close(session);
    }
    EXPECT_EQ(clock.Now(), 4 * 20);
    close(editor);
    SetListingState(kListingComplete);
    FinishSendListing();  // nobody listens: nothing is said
    EXPECT_EQ(TakeCapture(), "");
}

}  // namespace

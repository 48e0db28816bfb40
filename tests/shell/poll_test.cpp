// The poll: for whom it stands aside.
#include "terminal/screen/TerminalText.h"
#include "tests/shell/ShellRig.h"
#include "xmodem/XmodemJob.h"

namespace {

class Poll : public ShellRig {
  protected:
    Poll() {
        OpenWindow();
        ClearTerminal(kTerminalCanvas);
    }
    static void Tick() {
        PostInterfaceEvent(kEventTimer, kMainWindow, kPollTimer, 0);
        Drain();
    }
    static bool Shown(const char* text) {
        return GetTerminalText(TextPart::kVisible).contains(text);
    }
};

TEST_F(Poll, StandsAside) {
    XmodemJob &send = JobOf(Direction::kSend), &receive = JobOf(Direction::kReceive);
    const auto bar = [&](int i, bool on) {
        if (i == 0) SetPollingSuspended(on);
        if (i == 1) SetQueueBusy(on);
        if (i == 2) send.thread.started = on;
        if (i == 3) receive.thread.started = on;
    };
    for (int i = 0; i < 4; ++i) {
        const std::string text = "waits" + std::to_string(i);
        device.Write(text);
        bar(i, true);
        Tick();
        EXPECT_FALSE(Shown(text.c_str())) << i;
        bar(i, false);
        Tick();
        EXPECT_TRUE(Shown(text.c_str())) << i;
    }
    SetQuietTerminal(true);
    device.Write("lost");
    Tick();
    SetQuietTerminal(false);
    Tick();
    EXPECT_FALSE(Shown("lost"));
}

}  // namespace

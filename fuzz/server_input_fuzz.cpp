// What local tools may send to the two ports, and a device meanwhile: any bytes in chunks of
// any size, through real sockets and the real workers, in each terminal mode, on a clock
// without waits. The device gets what the data port was sent, byte for byte.
#include <unistd.h>

#include <QDir>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkSettings.h"
#include "link/Servers.h"
#include "shell/Dispatch.h"
#include "shell/Poll.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/VtFinals.h"
#include "tests/screen/ScreenRig.h"
#include "tests/support/FarEnd.h"
#include "tests/support/LocalTools.h"
#include "ui/InterfaceLayer.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/WaitWindowEvent.h"

namespace {

constexpr size_t kSliceStep = 61;  // slices are up to 85 of these: more than a chunk

class NoWaits : public Clock {
  public:
    void Sleep(int64_t) override {}
    int64_t Now() override { return ++now; }
    int64_t LocalSeconds() override { return 0; }

  private:
    std::atomic<int64_t> now{0};
};

struct Tool {
    int64_t identity;
    int port;
    LocalClient client{port};
    size_t sent = 0, taken = 0;

    // Sends, and serves the loop until all of it was handled. The device reads all the while.
    void Say(const std::string& bytes, FarEnd& device, std::string& arrived) {
        client.Write(bytes);
        for (sent += bytes.size(); taken < sent;) {
            const int32_t event = WaitForEvent(1000);
            if (event == kEventServerChunk && EventType() == identity)
                taken += static_cast<size_t>(FindServer(identity)->length);
            // What the terminal answers would stand among the bytes that are compared.
            if (event != kEventTerminalReply) DispatchEvent(event, EventWindow());
            arrived += device.Read();
        }
        client.Read();
        client.received.clear();
    }
};

struct Session {
    FarEnd device;
    Tool data{kDataServerIdentity, linkSettings.dataPort};
    Tool control{kControlServerIdentity, linkSettings.controlPort};
};

Session* session = nullptr;

void WaitForServers() {
    for (int lines = 0; lines < 2;) {
        const int32_t event = WaitForEvent(1000);
        if (event == kEventServerMessage) ++lines;
        DispatchEvent(event, EventWindow());
    }
}

// A path of one part, in the present folder: what is missing is created by its name.
std::string Harmless(std::string command) {
    std::replace(command.begin() + 1, command.end(), '/', '_');
    return command;
}

void EmptyFolder() {
    for (const QString& name : QDir().entryList(QDir::Files | QDir::Hidden)) QFile::remove(name);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static NoWaits clock;
    InstallClock(&clock);
    StartInterfaceLayer(*argv);
    char folder[] = "/tmp/server_input_fuzz.XXXXXX";
    if (!mkdtemp(folder) || chdir(folder) != 0) abort();
    OpenScreenRig();
    LinkSettingsForTable().dataPort = FreePort();
    LinkSettingsForTable().controlPort = FreePort();
    StartServers();
    WaitForServers();
    session = new Session;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    SetTerminalMode(data[0] % kModes);
    std::string toDevice, arrived;
    for (size_t at = 1; at + 1 < size;) {
        const int kind = data[at] % 3;
        const size_t length = std::min<size_t>(1 + data[at] / 3 * kSliceStep, size - at - 1);
        const std::string slice(reinterpret_cast<const char*>(data + at + 1), length);
        at += 1 + length;
        if (kind == 0) {
            session->data.Say(slice, session->device, arrived);
            toDevice += slice;
        } else if (kind == 1) {
            session->control.Say(Harmless(slice), session->device, arrived);
        } else {
            session->device.Write(slice);
            PollLink();
        }
    }
    if (arrived != toDevice) abort();
    TakeReplyText();
    DropQueuedEvents(kEventTerminalReply, kNone);
    EmptyFolder();
    return 0;
}

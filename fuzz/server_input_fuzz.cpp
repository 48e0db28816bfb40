// What the chunks of the two servers may hold, and what a device says between them: any bytes
// of any count, in each terminal mode, on a clock without waits. The device gets what the
// data port was sent, byte for byte.
#include <QDir>

#include "link/Servers.h"
#include "shell/Poll.h"
#include "shell/ServerChunks.h"
#include "tests/screen/ScreenRig.h"
#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/VirtualClock.h"
#include "ui/InterfaceLayer.h"

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    static VirtualClock clock;
    StartInterfaceLayer(*argv);
    static const ScratchFolder folder;
    OpenScreenRig();
    LinkSettingsForTable().dataPort = LinkSettingsForTable().controlPort = -1;
    StartServers();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kSliceStep = 58;  // slices are up to 85 of these: a chunk
    static FarEnd device;
    if (size == 0) return 0;
    SetTerminalMode(data[0] % kModes);
    std::string toDevice, arrived;
    for (size_t at = 1; at + 1 < size;) {
        const int kind = data[at] % 3;
        const size_t length = std::min<size_t>(1 + data[at] / 3 * kSliceStep, size - at - 1);
        std::string slice(reinterpret_cast<const char*>(data + at + 1), length);
        at += 1 + length;
        if (kind == 0) {
            device.Write(slice);
            PollLink();
        } else {
            // A path of one part, in the present folder: what is missing is created.
            if (kind == 1) std::replace(slice.begin() + 1, slice.end(), '/', '_');
            if (kind == 2) toDevice += slice;
            // As the worker hands it over; the workers themselves have no port and have ended.
            const int64_t identity = kind == 1 ? kControlServerIdentity : kDataServerIdentity;
            auto& record = const_cast<ServerRecord&>(*FindServer(identity));
            std::copy(slice.begin(), slice.end(), record.buffer.begin());
            record.length = static_cast<int64_t>(slice.size());
            HandleServerChunk(identity);
        }
        // What the terminal answers would stand among the bytes that are compared.
        for (int32_t event = 0; (event = WaitForEvent(0)) != kNoEvent;)
            if (event != kEventTerminalReply) DispatchEvent(event, EventWindow());
        arrived += device.Read();
    }
    if (arrived != toDevice) abort();
    TakeReplyText();
    for (const QString& name : QDir().entryList(QDir::Files | QDir::Hidden)) QFile::remove(name);
    return 0;
}

// The fetch of a file from a device that says anything at any time: each slice of the
// input is what arrives in 10 milliseconds. What is stored is whole blocks, and no more of
// them than bytes that came.
#include <algorithm>

#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "tests/support/VirtualClock.h"
#include "ui/InterfaceLayer.h"
#include "xmodem/Receive.h"
#include "xmodem/XmodemJob.h"

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    StartInterfaceLayer(*argv);
    SetServeBeforeWait([] { ServeJobStatus(JobOf(Direction::kReceive)); });
    static const ScratchFolder folder;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    VirtualClock clock;
    FarEnd device;
    XmodemJob& job = JobOf(Direction::kReceive);
    clock.onTick = [&, next = data, left = size](int64_t now) mutable {
        if (now % 10 != 0) return;
        device.Read();
        if (left < 2) {
            job.abort = true;
            device.Write(std::string(1032, '\2'));  // ends any wait for a start
            return;
        }
        const size_t slice = std::min<size_t>(next[0] * 5, left - 1);
        device.Write({reinterpret_cast<const char*>(next) + 1, slice});
        next += slice + 1;
        left -= slice + 1;
    };
    sem_init(&job.semaphore, 0, 0);
    job.firstName = job.secondName = "f";
    job.lineEnd = "\r";
    job.abort = false;
    XmodemReceiveWorker(job);
    DropAllEvents();
    const size_t stored = static_cast<size_t>(ScratchFolder::Get("f").size());
    if (stored % 128 != 0 || stored > size) abort();
    QFile::remove("f");
    return 0;
}

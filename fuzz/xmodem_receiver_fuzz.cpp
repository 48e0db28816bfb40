// The fetch of a file from a device that says anything at any time: each slice of the
// input is what has arrived by one sleep. What is stored is whole blocks, and no more of
// them than bytes that came.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "tests/support/FarEnd.h"
#include "ui/InterfaceLayer.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "xmodem/Receive.h"
#include "xmodem/XmodemJob.h"
#include "xmodem/XmodemSeams.h"

namespace {

class SlicedInput : public Clock {
  public:
    SlicedInput(const uint8_t* bytes, size_t size) : next(bytes), left(size) { InstallClock(this); }
    ~SlicedInput() override { InstallClock(nullptr); }

    void Sleep(int64_t ms) override {
        now += ms;
        if (left < 2) {
            JobOf(Direction::kReceive).abort = true;
            device.Write(std::string(1032, '\2'));  // ends any wait for a start
            return;
        }
        const size_t slice = std::min<size_t>(next[0] * 5, left - 1);
        device.Read();
        device.Write({reinterpret_cast<const char*>(next) + 1, slice});
        next += slice + 1;
        left -= slice + 1;
    }
    int64_t Now() override { return now += 1; }
    int64_t LocalSeconds() override { return 0; }

  private:
    FarEnd device;
    const uint8_t* next;
    size_t left;
    int64_t now = 0;
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    StartInterfaceLayer(*argv);
    SetServeBeforeWait([] { ServeJobStatus(JobOf(Direction::kReceive)); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string path = "/tmp/xmodem_receiver_fuzz." + std::to_string(getpid());
    XmodemJob& job = JobOf(Direction::kReceive);
    sem_init(&job.semaphore, 0, 0);
    job.firstName = "f";
    job.secondName = QString::fromStdString(path);
    job.lineEnd = "\r";
    job.abort = false;
    {
        SlicedInput input(data, size);
        XmodemReceiveWorker(job);
    }
    for (const int event : {kEventReceiveStatus, kEventReceiveDone}) DropQueuedEvents(event, 0);
    struct stat facts = {};
    if (stat(path.c_str(), &facts) == 0) {
        if (facts.st_size % 128 != 0 || facts.st_size > static_cast<off_t>(size)) abort();
        unlink(path.c_str());
    }
    return 0;
}

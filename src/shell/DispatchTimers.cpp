// Timers of the main window.
#include "base/Numbers.h"
#include "shell/Dispatch.h"
#include "shell/Poll.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/AddWindowTimer.h"
#include "ui/Notice.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"

namespace {

// The first step of work: once, when the window has settled.
void DeferredLoad() {
    RemoveWindowTimer(kMainWindow, kDeferredLoadTimer);
    TerminalPrintLine("started");
    // A copy: the upload may change the record while it reads the path.
    const QString path = uploadSource.currentFile;
    LoadPath(path);
}

struct TimerRow {
    int timer;
    void (*job)();
};

const TimerRow timerRows[] = {
    {kPollTimer, PollLink},
    {kBlinkTimer, NotifyCursorBlink},
    {kDeferredLoadTimer, DeferredLoad},
    {kNoticeTimer, CloseNotice},
};

}  // namespace

void DispatchTimer(int64_t timer) {
    for (const TimerRow& row : timerRows) {
        if (row.timer == timer) row.job();
    }
}

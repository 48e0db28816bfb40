// Timers of the main window.
#include "base/Numbers.h"
#include "shell/Dispatch.h"
#include "shell/Poll.h"
#include "shell/Route.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/events/BoundHandlers.h"
#include "ui/windows/Notice.h"
#include "upload/LoadPath.h"
#include "upload/UploadOptions.h"

namespace {

// The first step of work: once, when the window has settled.
void DeferredLoad(int) {
    RemoveWindowTimer(kMainWindow, kDeferredLoadTimer);
    TerminalPrintLine("started");
    // A copy: the upload may change the record while it reads the path.
    const QString path = uploadSource.currentFile;
    LoadPath(path);
}

// clang-format off
const Route timerRoutes[] = {
    {kPollTimer,         kPollTimer,         kAny, [](int) { PollLink(); }},
    {kBlinkTimer,        kBlinkTimer,        kAny, [](int) { NotifyCursorBlink(); }},
    {kDeferredLoadTimer, kDeferredLoadTimer, kAny, DeferredLoad},
    {kNoticeTimer,       kNoticeTimer,       kAny, [](int) { CloseNotice(); }},
};
// clang-format on

}  // namespace

void DispatchTimer(int64_t timer) {
    TakeRoute(timerRoutes, timer);
}

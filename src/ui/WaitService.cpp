#include "ui/WaitService.h"

#include <QCoreApplication>
#include <QEventLoop>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "ui/CloseRequest.h"
#include "ui/FlushPainting.h"
#include "ui/drawing/Drawing.h"
#include "ui/events/EventQueue.h"

namespace {

bool serving = false;  // what the toolkit calls may wait as well

// The close is taken in its turn, behind what the user did before it.
bool MainWindowIsToClose() {
    return EventIsQueued(kEventCloseWindow, kNone, kMainWindow) || CloseIsPending(kMainWindow);
}

}  // namespace

void StartWaitService() {
    SetWaitService(ServeToolkit);
}

void StopWaitService() {
    SetWaitService(nullptr);
}

// The look comes before the turn of the toolkit, which puts user input where no look reaches.
void ServeToolkit() {
    if (serving || !QCoreApplication::instance()) return;
    serving = true;
    FlushPainting();
    if (MainWindowIsToClose()) RequestLeave(true);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    serving = false;
}

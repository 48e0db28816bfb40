#include "ui/WaitWindowEvent.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <atomic>
#include <cassert>

#include "ui/BoundHandlers.h"
#include "ui/EventQueue.h"
#include "ui/InterfaceLayer.h"
#include "ui/WaitEnd.h"
#include "ui/WindowTable.h"

namespace {

// What a wait sleeps on. Another thread ends the wait by a toolkit event to this object;
// calling quit() from there could fall before exec() and be lost.
class Waiter : public QObject {
  public:
    Waiter() {
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
        connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        wakeUnderWay = false;
        // A late one, of an event that was taken meanwhile, ends nothing.
        if (QueuedEventCount() > 0) loop.quit();
        return true;
    }

    QEventLoop loop;
    QTimer timer;
    std::atomic<bool> wakeUnderWay{false};
};

// Other threads read the pointer under the queue's lock; it is set before they start and
// cleared after they ended.
std::atomic<Waiter*> waiter{nullptr};
bool inWait = false;

// Serves the toolkit until an event comes or the time is up.
bool ServeToolkit(int timeoutMs) {
    Waiter& wait = *waiter;
    if (timeoutMs >= 0) wait.timer.start(timeoutMs);
    const bool left = wait.loop.exec() != -1;
    wait.timer.stop();
    return left;
}

}  // namespace

void StartWaiting() {
    waiter = new Waiter;
}

void StopWaiting() {
    delete waiter.exchange(nullptr);
}

void EndWait() {
    Waiter* const wait = waiter;
    if (!wait) return;
    if (OnInterfaceThread()) {
        wait->loop.quit();
    } else if (!wait->wakeUnderWay.exchange(true)) {
        QCoreApplication::postEvent(wait, new QEvent(QEvent::User));
    }
}

int32_t WaitForEvent(int timeoutMs) {
    assert(OnInterfaceThread());
    assert(!inWait && !HandlersAreRunning() && "a handler must not take events");
    if (inWait || HandlersAreRunning() || !waiter) return kNoEvent;
    inWait = true;
    ShowNewWindows();
    bool came = TakeQueuedEvent();
    if (!came && timeoutMs >= 0) {
        ServeToolkit(timeoutMs);
        came = TakeQueuedEvent();
    }
    // The second condition ends it when the toolkit itself was told to end.
    while (!came && timeoutMs < 0 && ServeToolkit(timeoutMs)) came = TakeQueuedEvent();
    inWait = false;
    return came ? EventNumber() : kNoEvent;
}

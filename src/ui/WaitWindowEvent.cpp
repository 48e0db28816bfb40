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

// What a wait is ended by, beside the toolkit's own events: a timer, and an event from
// another thread.
class Waiter : public QObject {
  public:
    Waiter() {
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        wakeUnderWay = false;
        return true;
    }

    QTimer timer;
    std::atomic<bool> wakeUnderWay{false};
};

// Other threads read the pointer under the queue's lock; it is set before they start and
// cleared after they ended.
std::atomic<Waiter*> waiter{nullptr};
bool inWait = false;

// Lets the toolkit sleep until it has something to do, and do it, until that brings an
// event or the time is up. Each turn costs the kernel one poll(2), which a loop that is
// told to quit for each event would not manage.
bool ServeToolkit(int timeoutMs) {
    QTimer& timer = waiter.load()->timer;
    if (timeoutMs >= 0) timer.start(timeoutMs);
    bool came = false;
    while (!came && (timeoutMs < 0 || timer.isActive())) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        came = TakeQueuedEvent();
    }
    timer.stop();
    return came;
}

}  // namespace

void StartWaiting() {
    waiter = new Waiter;
}

void StopWaiting() {
    delete waiter.exchange(nullptr);
}

void WakeInterfaceThread() {
    Waiter* const wait = waiter;
    if (wait && !OnInterfaceThread() && !wait->wakeUnderWay.exchange(true)) {
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
    if (!came) {
        // No handler is on the stack here, so what was freed in one can go.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        came = ServeToolkit(timeoutMs);
    }
    inWait = false;
    return came ? EventNumber() : kNoEvent;
}

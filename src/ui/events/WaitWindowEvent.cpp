#include "ui/events/WaitWindowEvent.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <atomic>
#include <cassert>

#include "ui/events/BoundHandlersInternal.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueueInternal.h"
#include "ui/events/InterfaceThread.h"
#include "ui/events/WaitWindowEventInternal.h"

namespace {

// What the interface thread sleeps in. Other threads read the pointer under the queue's
// lock; it is set before they start and cleared after they ended.
std::atomic<QAbstractEventDispatcher*> dispatcher{nullptr};
QTimer* timer = nullptr;  // ends a wait that has a limit
bool inWait = false;
void (*beforeWait)() = nullptr;

// Lets the toolkit sleep until it has something to do, and do it, until that brings an
// event or the time is up. Each turn costs the kernel one poll(2), which a loop that is
// told to quit for each event would not manage.
bool ServeToolkit(int timeoutMs) {
    if (timeoutMs >= 0) timer->start(timeoutMs);
    bool came = false;
    while (!came && (timeoutMs < 0 || timer->isActive())) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        came = TakeQueuedEvent();
    }
    timer->stop();
    return came;
}

}  // namespace

void StartWaiting() {
    dispatcher = QAbstractEventDispatcher::instance();
    timer = new QTimer;
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
}

void StopWaiting() {
    dispatcher = nullptr;
    delete timer;
    timer = nullptr;
}

void SetBeforeWait(void (*procedure)()) {
    beforeWait = procedure;
}

// A call that comes before the sleep ends it as soon as it begins.
void WakeInterfaceThread() {
    if (OnInterfaceThread()) return;
    if (QAbstractEventDispatcher* sleeper = dispatcher) sleeper->wakeUp();
}

// A second call inside the first, or inside a bound handler, would take events away from
// under the one that is being handled. Built without assertions it gets no event.
int32_t WaitForEvent(int timeoutMs) {
    assert(OnInterfaceThread());
    assert(!inWait && !HandlersAreRunning() && "a handler must not take events");
    if (inWait || HandlersAreRunning() || !timer) return kNoEvent;
    inWait = true;
    if (beforeWait) beforeWait();
    bool came = TakeQueuedEvent();
    if (!came) {
        // No handler is on the stack here, so what was freed in one can go.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        came = ServeToolkit(timeoutMs);
    }
    inWait = false;
    return came ? EventNumber() : kNoEvent;
}

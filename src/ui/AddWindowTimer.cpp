#include "ui/AddWindowTimer.h"

#include <QTimer>
#include <QVariant>

#include "base/Numbers.h"
#include "ui/EventQueue.h"
#include "ui/GadgetTable.h"
#include "ui/InterfaceEvent.h"
#include "ui/PBQMainWindow.h"
#include "ui/PBTimerEvents.h"
#include "ui/WindowTable.h"

namespace {

constexpr char kTimerProperty[] = "PB_TimerID";

PBTimerEvents timerEvents;

// The timers of a window are its children, so they end with it. The toolkit keeps timers
// of its own there as well, without a number.
QTimer* FindTimer(const PBQMainWindow& window, int number) {
    for (QTimer* timer : window.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QVariant property = timer->property(kTimerProperty);
        if (property.isValid() && property.toInt() == number) return timer;
    }
    return nullptr;
}

}  // namespace

void PBTimerEvents::Fired() {
    const auto* window = static_cast<const PBQMainWindow*>(sender()->parent());
    if (FindWindow(window->Number()) != window) return;  // closed, and soon deleted
    FireWindowTimer(window->Number(), sender()->property(kTimerProperty).toInt());
}

// A timer whose last event still waits is not raised again: a dialog that stands for
// hours would otherwise leave thousands of them in the queue.
void FireWindowTimer(int window, int number) {
    if (EventIsQueued(kEventTimer, number, window)) return;
    InterfaceEvent event;
    event.number = kEventTimer;
    event.object = number;
    event.window = window;
    RaiseInterfaceEvent(event);
}

void AddWindowTimer(int window, int number, int periodMs) {
    PBQMainWindow* const found = FindWindow(window);
    if (!found) return;
    RemoveWindowTimer(window, number);
    auto* timer = new QTimer(found);
    timer->setProperty(kTimerProperty, number);
    timer->setTimerType(Qt::PreciseTimer);  // the others stray by a twentieth
    QObject::connect(timer, &QTimer::timeout, &timerEvents, &PBTimerEvents::Fired);
    timer->start(qMax(1, periodMs));  // a period of 0 would never let the program sleep
}

// A removed timer is silent from now on: what it raised and nobody took goes too. It may
// be the one whose event is being handled, so it is deleted later.
void RemoveWindowTimer(int window, int number) {
    PBQMainWindow* const found = FindWindow(window);
    QTimer* const timer = found ? FindTimer(*found, number) : nullptr;
    if (!timer) return;
    timer->stop();
    timer->setProperty(kTimerProperty, QVariant());
    timer->deleteLater();
    DropQueuedEvents(kEventTimer, number);
}

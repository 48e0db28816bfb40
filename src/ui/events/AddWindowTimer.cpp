#include "ui/events/AddWindowTimer.h"

#include <QTimer>
#include <QVariant>

#include "base/Numbers.h"
#include "ui/events/EventQueue.h"
#include "ui/events/NumberedWidgets.h"

namespace {

constexpr char kTimerProperty[] = "PB_TimerID";

// The timers of a window are its children, so they end with it. The toolkit keeps timers
// of its own there as well, without a number.
QTimer* FindTimer(const QWidget& window, int number) {
    for (QTimer* timer : window.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QVariant property = timer->property(kTimerProperty);
        if (property.isValid() && property.toInt() == number) return timer;
    }
    return nullptr;
}

// A window that is closed has no number, and is soon deleted.
void Fired(const QTimer* timer) {
    const int window = WindowOf(static_cast<const QWidget*>(timer->parent()));
    if (window >= 0) FireWindowTimer(window, timer->property(kTimerProperty).toInt());
}

}  // namespace

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
    QWidget* const found = WindowWidget(window);
    if (!found) return;
    RemoveWindowTimer(window, number);
    auto* timer = new QTimer(found);
    timer->setProperty(kTimerProperty, number);
    timer->setTimerType(Qt::PreciseTimer);  // the others stray by a twentieth
    QObject::connect(timer, &QTimer::timeout, [timer] { Fired(timer); });
    timer->start(qMax(1, periodMs));  // a period of 0 would never let the program sleep
}

// A removed timer is silent from now on: what it raised and nobody took goes too. It may
// be the one whose event is being handled, so it is deleted later.
void RemoveWindowTimer(int window, int number) {
    QWidget* const found = WindowWidget(window);
    QTimer* const timer = found ? FindTimer(*found, number) : nullptr;
    if (!timer) return;
    timer->stop();
    timer->setProperty(kTimerProperty, QVariant());
    timer->deleteLater();
    DropQueuedEvents(kEventTimer, number);
}

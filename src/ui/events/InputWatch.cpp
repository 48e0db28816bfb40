#include "ui/events/InputWatch.h"

#include <QSocketNotifier>
#include <memory>

#include "ui/events/AddWindowTimer.h"

namespace {

std::unique_ptr<QSocketNotifier> notifier;

}  // namespace

void FireTimerOnInput(int fd, int window, int timer) {
    if (!notifier || notifier->socket() != fd) {
        notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
        QObject::connect(notifier.get(), &QSocketNotifier::activated, [window, timer] {
            notifier->setEnabled(false);
            FireWindowTimer(window, timer);
        });
    }
    notifier->setEnabled(true);
}

bool InputIsAwaited() {
    return notifier && notifier->isEnabled();
}

void ForgetInput() {
    notifier.reset();
}

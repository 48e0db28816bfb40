// Turns the timeouts of window timers into event 15.
#pragma once

#include <QObject>

class PBTimerEvents : public QObject {
    Q_OBJECT
  public Q_SLOTS:
    void Fired();
};

// The event filter on gadgets: the focus of those that report it, and the right button
// released over any of them.
#pragma once

#include <QObject>

class PBEventFilter : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// The one filter, which all gadgets share.
PBEventFilter* GadgetEventFilter();

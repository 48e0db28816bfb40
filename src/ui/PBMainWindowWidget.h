// The central widget of a window. Gadget coordinates are relative to it; its size is the
// window's inner size.
#pragma once

#include <QWidget>

class PBMainWindowWidget : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;

    // Gadgets that do not fit are cut off: nothing keeps the user from making it small.
    QSize minimumSizeHint() const override { return QSize(0, 0); }
};

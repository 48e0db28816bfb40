#include "ui/windows/PBQMainWindowInternal.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>

#include "base/Numbers.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/windows/Windows.h"

namespace {

// The central widget. Gadget coordinates are relative to it; its size is the window's inner
// size. Gadgets that do not fit are cut off: nothing keeps the user from making it small.
class PBMainWindowWidget : public QWidget {
    Q_OBJECT
  public:
    using QWidget::QWidget;

    QSize minimumSizeHint() const override { return QSize(0, 0); }
};

}  // namespace

PBQMainWindow::PBQMainWindow(int window, QWidget* parent, Qt::WindowFlags flags, bool fixed)
    : QMainWindow(parent, flags), number(window), fixedSize(fixed) {
    setProperty(kWindowProperty, window);
    setCentralWidget(new PBMainWindowWidget(this));
}

// The toolkit's own rule for the height that a window's layout gives its menu bar. A
// window without one must not be asked for it, which would create it.
int PBQMainWindow::MenuBarHeight(int width) const {
    const QWidget* bar = menuWidget();
    if (!bar || bar->isHidden()) return 0;
    const int height = bar->heightForWidth(qMax(width, bar->minimumWidth()));
    return height >= 0 ? height : bar->sizeHint().height();
}

// Reckoned, not read from the central widget, which a hidden window has not laid out yet.
QSize PBQMainWindow::InnerSize() const {
    return QSize(width(), qMax(0, height() - MenuBarHeight(width())));
}

void PBQMainWindow::SetInnerSize(const QSize& inner) {
    wantedInner = inner.boundedTo(QSize(kLargestWindowWidth, kLargestWindowHeight));
    FitMenuBar();
}

void PBQMainWindow::FitMenuBar() {
    const QSize outer(wantedInner.width(),
                      wantedInner.height() + MenuBarHeight(wantedInner.width()));
    if (fixedSize) {
        setFixedSize(outer);
    } else {
        resize(outer);
    }
}

// The program decides what closing means; the window itself stays open.
void PBQMainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    RaiseWindowEvent(number, kEventCloseWindow);
}

void PBQMainWindow::moveEvent(QMoveEvent*) {
    RaiseWindowEvent(number, kEventMoveWindow);
}

void PBQMainWindow::resizeEvent(QResizeEvent*) {
    RaiseWindowEvent(number, kEventSizeWindow);
}

void PBQMainWindow::paintEvent(QPaintEvent*) {
    RaiseWindowEvent(number, kEventRepaint);
}

// Restored is what is neither minimized nor maximized any more.
void PBQMainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        RaiseWindowEvent(number, isActiveWindow() ? kEventActivateWindow : kEventDeactivateWindow);
    } else if (event->type() == QEvent::WindowStateChange) {
        const int change = isMinimized()   ? kEventMinimizeWindow
                           : isMaximized() ? kEventMaximizeWindow
                                           : kEventRestoreWindow;
        RaiseWindowEvent(number, change);
    }
}

void PBQMainWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    doubleClicked = event->button() == Qt::LeftButton;
}

// The press and its kind are only remembered; the release is what counts.
void PBQMainWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        RaiseWindowEvent(number, kEventRightButtonUp);
    } else if (event->button() == Qt::LeftButton) {
        RaiseWindowEvent(number, doubleClicked ? kEventLeftDoubleClickUp : kEventLeftButtonUp);
        doubleClicked = false;
    }
}

#include "PBQMainWindow.moc"

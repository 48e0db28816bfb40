#include "ui/windows/Windows.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <cassert>
#include <map>
#include <vector>

#include "base/Numbers.h"
#include "ui/events/EventQueue.h"
#include "ui/events/InterfaceThread.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/windows/PBQMainWindowInternal.h"
#include "ui/windows/WindowsInternal.h"

namespace {

std::map<int, PBQMainWindow*> windows;
std::vector<PBQMainWindow*> unshown;  // opened, and not on the screen yet

// What a window's frame offers, by the program's flags. kWindowSizable has no row: it
// decides whether the size is fixed.
struct FlagRow {
    int flag;  // of base/Numbers.h
    Qt::WindowFlags look;
};

const FlagRow kFlagRows[] = {
    {kWindowClose, Qt::WindowCloseButtonHint | Qt::WindowSystemMenuHint},
    {kWindowMaximize, Qt::WindowMaximizeButtonHint},
    {kWindowMinimize, Qt::WindowMinimizeButtonHint},
};

// A window that stands centred over its parent is a dialog to the window manager: it keeps
// above the parent and out of the task list.
Qt::WindowFlags LookOf(int flags) {
    Qt::WindowFlags look = Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    look |= flags & kWindowCentredOnParent ? Qt::Dialog : Qt::Window;
    for (const FlagRow& row : kFlagRows) {
        if (flags & row.flag) look |= row.look;
    }
    return look;
}

// A place is that of the frame, which the window manager adds. How wide the frame will be
// is not known before it is there, so a centred window is centred without it.
void PlaceWindow(PBQMainWindow* window, int x, int y, int flags, const QWidget* parent) {
    if (!(flags & kWindowCentredOnParent)) {
        window->move(qBound(-kFurthestPlace, x, kFurthestPlace),
                     qBound(-kFurthestPlace, y, kFurthestPlace));
    } else if (parent) {
        const QSize spare = (parent->frameGeometry().size() - window->size()) / 2;
        window->move(parent->frameGeometry().topLeft() + QPoint(spare.width(), spare.height()));
    }
}

// Windows that stand over this one go first: the toolkit would delete them with it, behind
// the back of the table.
void CloseOne(PBQMainWindow* window) {
    std::vector<PBQMainWindow*> children;
    for (const auto& [number, other] : windows) {
        if (other->parentWidget() == window) children.push_back(other);
    }
    for (PBQMainWindow* child : children) CloseOne(child);
    const int number = window->Number();
    windows.erase(number);
    unshown.erase(std::remove(unshown.begin(), unshown.end(), window), unshown.end());
    FreeGadgetsIn(window);
    window->setProperty(kWindowProperty, QVariant());
    RetireWidget(window);
    DropWindowEvents(number);
}

// The rectangle that a measure means, in screen coordinates.
QRect Measured(int window, WindowMeasure measure) {
    const PBQMainWindow* found = FindWindow(window);
    if (!found) return QRect(0, 0, 0, 0);
    if (measure == WindowMeasure::kFrame) return found->frameGeometry();
    const QPoint corner = found->mapToGlobal(QPoint(0, 0));
    const QSize inner = found->InnerSize();
    return QRect(corner.x(), corner.y() + found->height() - inner.height(), inner.width(),
                 inner.height());
}

}  // namespace

PBQMainWindow* FindWindow(int window) {
    assert(OnInterfaceThread());
    const auto found = windows.find(window);
    return found == windows.end() ? nullptr : found->second;
}

// A dialog needs a parent that is on the screen.
PBQMainWindow* ActiveProgramWindow() {
    ShowNewWindows();
    if (PBQMainWindow* active = FindWindow(WindowOf(QApplication::activeWindow()))) return active;
    return windows.empty() ? nullptr : windows.begin()->second;
}

// The keyboard stays where it is when a window opens that asks for no activation. Any
// other takes it, which has to be asked for where no window manager runs.
void ShowNewWindows() {
    while (!unshown.empty()) {
        PBQMainWindow* const window = unshown.front();
        unshown.erase(unshown.begin());
        window->show();
        if (!window->testAttribute(Qt::WA_ShowWithoutActivating)) window->activateWindow();
    }
}

// What is dirty is painted and goes out by the event that the toolkit sends itself for it
// when its loop comes round. It costs next to nothing where nothing is dirty.
void PaintAllWindows() {
    for (const auto& [number, window] : windows) {
        QEvent request(QEvent::UpdateRequest);
        if (window->isVisible()) QCoreApplication::sendEvent(window, &request);
    }
}

bool OpenNumberedWindow(int window, int x, int y, int width, int height, const QString& title,
                        int flags, int parentWindow) {
    if (window < 0) return false;
    CloseNumberedWindow(window);
    PBQMainWindow* const parent = FindWindow(parentWindow);
    const bool fixedSize = !(flags & (kWindowSizable | kWindowMaximize));
    auto* opened = new PBQMainWindow(window, parent, LookOf(flags), fixedSize);
    windows[window] = opened;
    opened->setWindowTitle(title);
    opened->SetInnerSize(QSize(qMax(width, 0), qMax(height, 0)));
    PlaceWindow(opened, x, y, flags, parent);
    opened->setAttribute(Qt::WA_ShowWithoutActivating, flags & kWindowCentredOnParent);
    unshown.push_back(opened);
    OpenGadgetList(opened->centralWidget());
    return true;
}

void CloseNumberedWindow(int window) {
    if (PBQMainWindow* found = FindWindow(window)) CloseOne(found);
    // Closing one may close others, so the table is looked at afresh each time.
    while (window == -1 && !windows.empty()) CloseOne(windows.begin()->second);
}

bool WindowIsOpen(int window) {
    return FindWindow(window) != nullptr;
}

void ActivateNumberedWindow(int window) {
    PBQMainWindow* const found = FindWindow(window);
    if (!found) return;
    ShowNewWindows();
    if (found->isMinimized()) found->setWindowState(found->windowState() & ~Qt::WindowMinimized);
    found->raise();
    found->activateWindow();
}

void SetWindowTitle(int window, const QString& title) {
    if (PBQMainWindow* found = FindWindow(window)) found->setWindowTitle(title);
}

QString WindowTitle(int window) {
    const PBQMainWindow* found = FindWindow(window);
    return found ? found->windowTitle() : QString();
}

int WindowX(int window, WindowMeasure measure) {
    return Measured(window, measure).x();
}
int WindowY(int window, WindowMeasure measure) {
    return Measured(window, measure).y();
}
int WindowWidth(int window, WindowMeasure measure) {
    return Measured(window, measure).width();
}
int WindowHeight(int window, WindowMeasure measure) {
    return Measured(window, measure).height();
}

void ResizeNumberedWindow(int window, int x, int y, int width, int height) {
    PBQMainWindow* const found = FindWindow(window);
    if (!found) return;
    if (x != kKeep || y != kKeep) found->move(Kept(x, found->x()), Kept(y, found->y()));
    const QSize inner = found->InnerSize();
    const QSize wanted(qMax(0, Kept(width, inner.width())), qMax(0, Kept(height, inner.height())));
    // A size that stands is not set again: on a maximized window it would end that.
    if (wanted != inner) found->SetInnerSize(wanted);
}

// What a user does, sent straight to the widgets, and the events that come of it.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMimeData>
#include <QTimer>
#include <QWidget>
#include <ostream>
#include <vector>

#include "base/Numbers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/EventQueue.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/windows/Windows.h"

// A taken event.
struct Seen {
    int32_t number;
    int64_t window;
    int64_t object;
    int64_t type;
    bool operator==(const Seen& o) const {
        return number == o.number && window == o.window && object == o.object && type == o.type;
    }
};

inline std::ostream& operator<<(std::ostream& out, const Seen& event) {
    return out << event.number << " of window " << event.window << " object " << event.object
               << " type " << event.type;
}

using Events = std::vector<Seen>;

constexpr int kTestWindow = 0;

inline Seen GadgetEvent(int gadget, int64_t type) {
    return {kEventGadget, kTestWindow, gadget, type};
}

// Opens a sizable window of 400 by 300 with a gadget list, and takes its first events.
void OpenTestWindow();

struct WithWindow : testing::Test {
    WithWindow() { OpenTestWindow(); }
};

QWidget* WidgetOfGadget(int gadget);
QWidget* WidgetOfWindow(int window);

// Serves the toolkit once and takes all events that wait; keeps those of one number, if given.
Events TakeEvents(int32_t number = kNoEvent);

void Press(QWidget* widget, QPoint at, Qt::MouseButton button);
void Release(QWidget* widget, QPoint at, Qt::MouseButton button);
void Click(QWidget* widget, QPoint at = QPoint(5, 5));
// The second press and release, behind a Click.
void ClickAgain(QWidget* widget, QPoint at);
void Move(QWidget* widget, QPoint to, Qt::MouseButtons held);
void Turn(QWidget* widget, int wheelUnits);
void Key(QWidget* widget, int key, const QString& text = QString(),
         Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// Drags something over a widget and drops it there; true when it was taken as a copy.
bool Drop(QWidget* target, const QMimeData& data);

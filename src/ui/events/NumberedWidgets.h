// The numbers that windows and the widgets of gadgets carry, as dynamic properties, and the
// events of windows. Interface thread.
#pragma once

#include <QObject>
#include <QWidget>

constexpr char kGadgetProperty[] = "PB_GadgetID";
constexpr char kWindowProperty[] = "PB_WindowID";

// The gadget number of a widget or of its helper, -1 for none.
int GadgetOf(const QObject* object);
// The same for the nearest gadget at or above a widget.
int GadgetAround(const QWidget* widget);

// The number of the window that a widget lies in, -1 for none.
int WindowOf(const QWidget* widget);
// The widget of an open window; null for none.
QWidget* WindowWidget(int window);

// Raises an event of the window itself; nothing for one that is not open.
void RaiseWindowEvent(int window, int number);

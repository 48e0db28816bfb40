// The module that holds the web view. It is a file of its own beside the program, loaded
// when the first web gadget is created: the web engine's libraries would cost every start
// of the program time and memory.
#pragma once

#include <QString>

class QWidget;

// The module's procedures, by the names that it exports.
struct WebViewModule {
    QWidget* (*create)(QWidget* parent);
    void (*load)(QWidget* view, const QString& address);  // percent-encoded
    void (*back)(QWidget* view);
    void (*forward)(QWidget* view);
};

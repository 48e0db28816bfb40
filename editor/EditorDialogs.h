// What the editor asks its user. Tests put their own answers in place.
#pragma once

#include <QFont>
#include <QStringList>
#include <functional>

class QPrinter;
class QWidget;

struct EditorDialogs {
    // Empty for a cancelled dialog. `near` is a path, or empty.
    std::function<QString(QWidget* window, const QString& near)> openPath;
    std::function<QString(QWidget* window, const QString& near)> savePath;
    // One of the answers; the last one also when the question is closed.
    std::function<QString(QWidget* window, const QString& question, const QStringList& answers)>
        ask;
    std::function<int(QWidget* window, int most)> lineNumber;  // from 1; 0 for cancelled
    std::function<QFont(QWidget* window, const QFont& now)> font;
    std::function<bool(QWidget* window, QPrinter& printer)> printer;  // false for cancelled
};

// The dialogs of the desktop.
EditorDialogs RealDialogs();

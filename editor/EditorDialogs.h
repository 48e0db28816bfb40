// What the editor asks its user. Tests put their own answers in place.
#pragma once

#include <QString>
#include <functional>

class QWidget;

enum class ChangesAnswer { kSave, kDiscard, kCancel };

struct EditorDialogs {
    // Empty for a cancelled dialog. `near` is a path, or empty.
    std::function<QString(QWidget* window, const QString& near)> openPath;
    std::function<QString(QWidget* window, const QString& near)> savePath;
    std::function<ChangesAnswer(QWidget* window, const QString& name)> unsavedChanges;
    std::function<void(QWidget* window, const QString& sentence)> trouble;
};

// The dialogs of the desktop.
EditorDialogs RealDialogs();

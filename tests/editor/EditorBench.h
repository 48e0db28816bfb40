// The editor with its real windows, driven by keys, and answers in place of the dialogs.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QPrinter>
#include <QRegularExpression>
#include <QStatusBar>
#include <QtTest>

#include "editor/Editor.h"
#include "tests/support/LocalTools.h"
#include "tests/support/ScratchFolder.h"

inline bool Until(const std::function<bool()>& holds) {
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < 20000 && !holds();) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return holds();
}

class EditorBench : public testing::Test {
  protected:
    QTemporaryDir folder;
    QStringList told;  // what was asked, and the files' names that were proposed
    QString chosen;    // what the dialogs answer: a path,
    QString answer;    // a button,
    int line = 0;      // a line, and what is printed goes to `printed`
    QString printed;
    EditorSetup setup = MakeSetup();
    std::unique_ptr<Editor> editor = std::make_unique<Editor>(setup);

    ~EditorBench() override { CloseAll(); }

    EditorSetup MakeSetup() {
        EditorSetup made;
        made.ports = {static_cast<quint16>(FreePort()), static_cast<quint16>(FreePort()),
                      static_cast<quint16>(FreePort())};
        made.helpFolder = KWCC_SOURCE_DIR "/data/html";
        made.settingsFile = folder.filePath("settings/KWEdit.ini");
        made.dialogs = Answers();
        return made;
    }
    EditorDialogs Answers() {
        EditorDialogs dialogs;
        dialogs.openPath = [this](QWidget*, const QString&) { return chosen; };
        dialogs.savePath = [this](QWidget*, const QString& near) {
            return told += "save " + near, chosen;
        };
        dialogs.ask = [this](QWidget*, const QString& question, const QStringList& answers) {
            told += question;
            return answers.contains(answer) ? answer : answers.last();
        };
        dialogs.lineNumber = [this](QWidget*, int) { return line; };
        dialogs.font = [](QWidget*, QFont font) { return font.setPointSize(19), font; };
        dialogs.printer = [this](QWidget*, QPrinter& printer) {
            printer.setOutputFileName(printed);
            return !printed.isEmpty();
        };
        return dialogs;
    }
    void CloseAll() {
        answer = "Don't save";
        for (EditorWindow* window : editor->Windows()) window->close();
        Settle();
    }
    // The editor goes without a word, as in a crash, and another one starts.
    void StartAgain() {
        for (EditorWindow* window : editor->Windows()) delete window;
        editor.reset();
        editor = std::make_unique<Editor>(setup);
    }
    static void Settle() {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }

    QString Write(const char* name, const QByteArray& bytes) const {
        return ScratchFolder::Put(folder.filePath(name), bytes);
    }
    QByteArray Contents(const char* name) const {
        return ScratchFolder::Get(folder.filePath(name));
    }
    EditorWindow& Window(size_t number = 0) const { return *editor->Windows().at(number); }
    BasicEdit& Text(size_t number = 0) const { return *Window(number).Text(); }
    std::string Shown() const { return Text().text().toStdString(); }
    QString Status() const { return Window().statusBar()->currentMessage(); }
    void Open(const QByteArray& source) { editor->OpenAll({Write("a.bas", source)}); }

    // Keys go to the window in front, as from the keyboard: a text, and others in brackets,
    // "one[Ctrl+A, Tab]\n".
    void Do(const QString& script) const {
        const QStringList parts = script.split(QRegularExpression("[][]"));
        for (int i = 0; i < parts.size(); ++i) {
            for (const QChar& c : i % 2 ? QString() : parts[i])
                c == '\n' ? Press(Qt::Key_Return) : Press(0, c.toLatin1());
            const QKeySequence keys(i % 2 ? parts[i] : QString());
            for (int k = 0; k < keys.count(); ++k) Press(keys[k]);
        }
    }
    void Press(int key, char c = 0) const {
        const auto modifiers = Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask);
        if (c) return QTest::keyClick(Target(), c);
        QTest::keyClick(Target(), Qt::Key(key & ~Qt::KeyboardModifierMask), modifiers);
        if (modifiers & Qt::AltModifier) QTest::qWait(150);  // a button goes down and up
    }
    // No window manager of this platform chooses the next window when one is closed.
    QWidget* Target() const {
        QApplication::processEvents();
        if (!QApplication::focusWidget()) QApplication::setActiveWindow(editor->Windows().back());
        EXPECT_TRUE(Until([] { return QApplication::focusWidget() != nullptr; }));
        return QApplication::focusWidget();
    }
};

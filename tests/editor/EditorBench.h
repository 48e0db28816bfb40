// The editor with its real windows, driven by keys, and answers in place of the dialogs.
#pragma once

#include <QPrinter>
#include <QtNetwork>
#include <QtTest>
#include <thread>

#include "editor/BasicIndex.h"
#include "editor/BasicLine.h"
#include "editor/Editor.h"
#include "editor/SecondStart.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"

inline bool Until(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, 20000);
}

struct EditorBench : testing::Test {
    QTemporaryDir folder;
    QStringList told;  // what was asked, and the files' names that were proposed
    QString chosen;    // what the dialogs answer: a path,
    QString answer;    // a button,
    int line = 0;      // a line, and what is printed goes to `printed`
    QString printed;
    EditorDialogs answers = {
        [this](QWidget*, const QString&) { return chosen; },
        [this](QWidget*, const QString& near) { return told += "save " + near, chosen; },
        [this](QWidget*, const QString& question, const QStringList& buttons) {
            told += question;
            return buttons.contains(answer) ? answer : buttons.last();
        },
        [this](QWidget*, int) { return line; },
        [](QWidget*, QFont font) { return font.setPointSize(19), font; },
        [this](QWidget*, QPrinter& printer) {
            return printer.setOutputFileName(printed), !printed.isEmpty();
        }};
    EditorSetup setup = {{FreshPort(), FreshPort(), FreshPort()},
                         "",
                         KWCC_SOURCE_DIR "/data/html",
                         folder.filePath("settings/KWEdit.ini"),
                         answers};
    std::unique_ptr<Editor> editor = std::make_unique<Editor>(setup);

    ~EditorBench() override { CloseAll(); }

    static quint16 FreshPort() {
        QTcpServer server;
        return server.listen(QHostAddress::LocalHost), server.serverPort();
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

    // Scripts, one behind the other, and the text that each leaves.
    void Do(const std::vector<std::pair<QString, std::string>>& scripts) const {
        for (const auto& [script, text] : scripts)
            EXPECT_EQ((Do(script), Shown()), text) << script.toStdString();
    }
    // Keys go to the window in front, as from the keyboard: a text, and others in brackets,
    // "one[Ctrl+A, Tab]\n".
    void Do(QString script) const {
        const QStringList parts = script.replace('\n', '\r').split(QRegularExpression("[][]"));
        for (int i = 0; i < parts.size(); ++i) {
            const QKeySequence keys(i % 2 ? parts[i] : QString());
            for (const QChar& c : i % 2 ? QString() : parts[i])
                QTest::keyClick(Target(), c.toLatin1());
            for (int k = 0; k < keys.count(); ++k) {
                const Qt::KeyboardModifiers modifiers(keys[k] & int(Qt::KeyboardModifierMask));
                QTest::keyClick(Target(), Qt::Key(keys[k] - modifiers), modifiers);
                if (!(modifiers & Qt::AltModifier)) continue;
                // A button that a key presses goes down, and acts when it comes up.
                const auto down = [](const QAbstractButton* button) { return button->isDown(); };
                const auto all = Target()->window()->findChildren<QAbstractButton*>();
                EXPECT_TRUE(Until([&] { return std::none_of(all.begin(), all.end(), down); }));
            }
        }
    }
    // No window manager of this platform chooses the next window when one is closed.
    QWidget* Target() const {
        QApplication::processEvents();
        if (!QApplication::focusWidget()) QApplication::setActiveWindow(editor->Windows().back());
        EXPECT_TRUE(Until([] { return QApplication::focusWidget() != nullptr; }));
        return QApplication::focusWidget();
    }
};

// A window and the board: loading by way of the console, and stopping what runs.
#include <QFileInfo>
#include <QProcess>

#include "editor/ConsoleLink.h"
#include "editor/EditorWindow.h"

namespace {

constexpr int kConsoleStart = 20000;  // milliseconds that a console may take to open its ports
constexpr int kNextTry = 250;         // milliseconds
const char kBreak[] = "\x03";         // what stops a program on a board

}  // namespace

void EditorWindow::LoadToDevice(const char* word) {
    if (!Save()) return;
    if (!CanBeSent(path)) return Tell("The console cannot take a file of this name.");
    CallConsole(word + path.toUtf8() + '\r', "Sent to the console: " + path);
}

void EditorWindow::CallConsole(const QByteArray& words, const QString& done) {
    SendToConsole(this, hooks.ports.control, words, [=](bool taken) {
        if (taken) return Tell(done);
        const QString question = QString("No console answers on port %1.").arg(hooks.ports.control);
        if (!QFileInfo(hooks.consoleProgram).isExecutable()) {
            hooks.dialogs.ask(this, question + " Start one.", {"OK"});
        } else if (hooks.dialogs.ask(this, question + " Start one?", {"Start", "Cancel"}) ==
                   "Start") {
            QProcess::startDetached(hooks.consoleProgram, {});
            StartConsole(words, done, kConsoleStart / kNextTry);
        }
    });
}

// Asks again until the console that was started has opened its port.
void EditorWindow::StartConsole(const QByteArray& words, const QString& done, int tries) {
    if (tries == 0) return Tell("The console did not start.");
    QTimer::singleShot(kNextTry, this, [=] {
        SendToConsole(this, hooks.ports.control, words, [=](bool taken) {
            if (taken) return Tell(done);
            StartConsole(words, done, tries - 1);
        });
    });
}

void EditorWindow::StopProgram() {
    SendToConsole(this, hooks.ports.data, kBreak, [this](bool taken) {
        Tell(taken ? "Sent Ctrl-C to the board."
                   : QString("No console answers on port %1.").arg(hooks.ports.data));
    });
}

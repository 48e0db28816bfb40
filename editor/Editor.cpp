#include "editor/Editor.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>

namespace {

void BringForward(QWidget* window) {
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

// By whatever way it is named.
QString TruePath(const QString& path) {
    const QFileInfo file(path);
    return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}

}  // namespace

Editor::Editor(const EditorSetup& setup)
    : habits(setup.settingsFile), listener(setup.ports.editor, [this] { OpenClipboard(); }) {
    hooks.dialogs = setup.dialogs;
    hooks.ports = setup.ports;
    hooks.consoleProgram = setup.consoleProgram;
    hooks.helpFolder = setup.helpFolder;
    hooks.newWindow = [this] { AddWindow(); };
    hooks.openFile = [this](const QString& path) { OpenPath(path); };
    hooks.holder = [this](const QString& path) { return HolderOf(path); };
}

void Editor::OpenAll(const QStringList& paths) {
    if (paths.isEmpty()) BringForward(FreeWindow());
    for (const QString& path : paths) OpenPath(path);
}

// That of a file is offered by the window that opens the file.
void Editor::OfferCopies() {
    for (const QString& copy : habits.Copies()) {
        const QString file = FileOfCopy(copy);
        if (!QFileInfo::exists(copy)) {
            habits.RemoveCopy(copy);
        } else if (file.isEmpty()) {
            FreeWindow()->OfferCopy(copy);
        } else {
            OpenPath(file);
        }
    }
}

std::vector<EditorWindow*> Editor::Windows() const {
    std::vector<EditorWindow*> open;
    for (EditorWindow* window : windows) {
        if (window) open.push_back(window);
    }
    return open;
}

EditorWindow* Editor::AddWindow() {
    auto* window = new EditorWindow(hooks, habits);
    windows.emplace_back(window);
    window->show();
    return window;
}

EditorWindow* Editor::FreeWindow() {
    for (EditorWindow* window : Windows()) {
        if (window->IsPristine()) return window;
    }
    return AddWindow();
}

EditorWindow* Editor::HolderOf(const QString& path) const {
    for (EditorWindow* window : Windows()) {
        if (!window->Path().isEmpty() && TruePath(window->Path()) == TruePath(path)) return window;
    }
    return nullptr;
}

void Editor::OpenPath(const QString& path) {
    EditorWindow* window = HolderOf(path);
    if (!window) {
        window = FreeWindow();
        window->OpenFile(path);
    }
    BringForward(window);
}

// The same listing twice shows the window that has it.
// The wish overtakes the window system's word that the clipboard has a new owner, and without
// that word the owner refuses to answer: what waits from there is taken first.
void Editor::OpenClipboard() {
    QGuiApplication::sync();
    const QString text =
        QApplication::clipboard()->text().replace("\r\n", "\n").replace('\r', '\n');
    for (EditorWindow* window : Windows()) {
        const bool same = window->Path().isEmpty() && window->Text()->text() == text;
        if (same && !window->IsPristine()) return BringForward(window);
    }
    if (text.isEmpty() || text.size() > kLargestText || Windows().size() >= kMostWindows) return;
    EditorWindow* window = FreeWindow();
    window->ShowNewText(text);
    BringForward(window);
}

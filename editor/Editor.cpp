#include "editor/Editor.h"

#include <QApplication>
#include <QClipboard>

Editor::Editor(const ConsolePorts& ports, const EditorDialogs& dialogs)
    : listener(ports.editor, [this] { OpenClipboard(); }) {
    hooks.dialogs = dialogs;
    hooks.controlPort = ports.control;
    hooks.newWindow = [this] { AddWindow(); };
    hooks.openWindow = [this](const QString& path) { OpenPath(path); };
}

void Editor::OpenAll(const QStringList& paths) {
    if (paths.isEmpty()) AddWindow();
    for (const QString& path : paths) OpenPath(path);
}

std::vector<EditorWindow*> Editor::Windows() const {
    std::vector<EditorWindow*> open;
    for (EditorWindow* window : windows) {
        if (window) open.push_back(window);
    }
    return open;
}

EditorWindow* Editor::AddWindow() {
    auto* window = new EditorWindow(hooks);
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

void Editor::OpenPath(const QString& path) {
    FreeWindow()->OpenFile(path);
}

// The same listing twice shows the window that has it.
void Editor::OpenClipboard() {
    const QString text =
        QApplication::clipboard()->text().replace("\r\n", "\n").replace('\r', '\n');
    for (EditorWindow* window : Windows()) {
        const bool same = window->Path().isEmpty() && window->Text()->toPlainText() == text;
        if (same && !window->IsPristine()) return window->activateWindow();
    }
    if (text.isEmpty() || text.size() > kLargestText || Windows().size() >= kMostWindows) return;
    EditorWindow* window = FreeWindow();
    window->ShowNewText(text);
    window->raise();
    window->activateWindow();
}

// The program: its windows, and what comes from the console.
#pragma once

#include <QPointer>
#include <QStringList>
#include <vector>

#include "editor/ConsolePorts.h"
#include "editor/EditorWindow.h"
#include "editor/PasteListener.h"

constexpr int kMostWindows = 30;  // beyond it the console's listings are not opened

class Editor {
  public:
    explicit Editor(const ConsolePorts& ports, const EditorDialogs& dialogs = RealDialogs());

    // A window for each file, or an empty one for none.
    void OpenAll(const QStringList& paths);

    // The windows that are open, the oldest first.
    std::vector<EditorWindow*> Windows() const;
    const PasteListener& Listener() const { return listener; }

  private:
    EditorWindow* AddWindow();
    EditorWindow* FreeWindow();
    void OpenPath(const QString& path);
    void OpenClipboard();

    EditorHooks hooks;
    std::vector<QPointer<EditorWindow>> windows;
    PasteListener listener;
};

// The program: its windows, and what comes from the console and from later starts.
#pragma once

#include <QPointer>
#include <QStringList>
#include <vector>

#include "editor/EditorWindow.h"
#include "editor/PasteListener.h"

constexpr int kMostWindows = 30;  // beyond it the console's listings are not opened

// Where things lie, and who answers questions.
struct EditorSetup {
    ConsolePorts ports;
    QString consoleProgram;
    QString helpFolder;
    QString settingsFile;
    EditorDialogs dialogs;
};

class Editor {
  public:
    explicit Editor(const EditorSetup& setup);

    // A window for each file, or an empty one for none. A file that is open comes to the front.
    void OpenAll(const QStringList& paths);
    // Offers the unsaved work that an editor left which is no more.
    void OfferCopies();

    // The windows that are open, the oldest first.
    std::vector<EditorWindow*> Windows() const;
    const PasteListener& Listener() const { return listener; }

  private:
    EditorWindow* AddWindow();
    EditorWindow* FreeWindow();
    EditorWindow* HolderOf(const QString& path) const;
    void OpenPath(const QString& path);
    void OpenClipboard();

    Habits habits;
    EditorHooks hooks;
    std::vector<QPointer<EditorWindow>> windows;
    PasteListener listener;
};

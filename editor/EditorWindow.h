// One source in one window.
#pragma once

#include <QMainWindow>
#include <QPlainTextEdit>
#include <functional>

#include "editor/EditorDialogs.h"
#include "editor/FindBar.h"
#include "editor/SourceText.h"

// What a window asks of the program around it.
struct EditorHooks {
    EditorDialogs dialogs;
    quint16 controlPort = 0;  // of the console
    std::function<void()> newWindow;
    std::function<void(const QString& path)> openWindow;
};

class EditorWindow : public QMainWindow {
  public:
    // `hooks` outlives the window.
    explicit EditorWindow(const EditorHooks& hooks);

    // Shows a file in place of what is there. False, after a word to the user, on failure.
    bool OpenFile(const QString& path);
    // Shows a text that is in no file yet, and so counts as changed.
    void ShowNewText(const QString& text);
    // Saves under the name it has, or asks for one. False when it is not saved.
    bool Save();
    bool SaveAs();
    // Saves, and asks the console to load the file.
    void LoadToDevice();

    // Nothing in it, and no file: another text may take the window.
    bool IsPristine() const;
    const QString& Path() const { return path; }
    QPlainTextEdit* Text() const { return text; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    struct Command;
    static const Command kCommands[];

    void AddCommands();
    void AskOpen();
    void ShowFind();
    void FindNext();
    void FindPrevious();
    void NewWindow();
    void CloseWindow();
    void SaveCommand();
    void SaveAsCommand();
    void Larger();
    void Smaller();
    void ShowPlace();
    void ShowName();
    void TakeSource(const SourceText& source);
    bool SaveTo(const QString& target);

    const EditorHooks& hooks;
    QPlainTextEdit* text;
    FindBar* findBar;
    QLabel* place;
    QString path;       // empty for a text without a file
    SourceText format;  // of the file; its text is not kept here
};

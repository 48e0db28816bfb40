// One source in one window.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <functional>

#include "companion/ConsolePorts.h"
#include "editor/BasicEdit.h"
#include "editor/EditorDialogs.h"
#include "editor/FindBar.h"
#include "editor/Habits.h"
#include "editor/HelpPane.h"
#include "editor/ProcedureBox.h"
#include "editor/Recovery.h"
#include "editor/SourceText.h"

// What a window asks of the program around it.
struct EditorHooks {
    EditorDialogs dialogs;
    ConsolePorts ports;
    QString consoleProgram;           // path of the console
    QString helpFolder;               // with the pages of the syntax index
    std::function<void()> newWindow;  // shows an empty one
    std::function<void(const QString& path)> openFile;
    std::function<QWidget*(const QString& path)> holder;  // the window that has it, or null
};

class EditorWindow : public QMainWindow {
  public:
    // `hooks` and `habits` outlive the window.
    EditorWindow(const EditorHooks& hooks, Habits& habits);

    // Shows a file in place of what is there. False, after a word to the user, on failure.
    bool OpenFile(const QString& path);
    // Shows a text that is in no file yet, and so counts as changed.
    void ShowNewText(const QString& text);
    // Offers what an editor that is no more left unsaved of this file, or of a new text.
    void OfferCopy(const QString& copy);
    // Saves under the name it has, or asks for one. False when it is not saved.
    bool Save();
    bool SaveAs();
    // Asks what is to happen when the file is not the one that was read; once for each change.
    void LookAtFile();

    // Saves, and asks the console to load the file, by "/load" or another word.
    void LoadToDevice(const char* word);
    // Sends the board its break code.
    void StopProgram();

    void GoToLine();
    void GoToReportedLine();
    void ShowHelp();
    void Print();
    void ChooseFont();
    void AskOpen();

    // Nothing in it, and no file: another text may take the window.
    bool IsPristine() const;
    const QString& Path() const { return path; }
    BasicEdit* Text() const { return text; }
    FindBar* Finder() const { return findBar; }
    ProcedureBox* Procedures() const { return procedures; }
    const EditorHooks& Hooks() const { return hooks; }
    void Tell(const QString& sentence);  // in the status line, for a while

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    // What is to happen with a file that another program changed.
    enum class DiskChoice { kTheirs, kMine, kBoth, kLater };

    void BuildMiddle();
    void BuildStatusLine();
    void ShowPlace();
    void ShowName();
    QString Name() const;
    bool Read(const QString& wanted);
    bool SaveTo(const QString& target, const QByteArray& expected);
    QByteArray Bytes() const;
    bool IsChanged() const { return unsaved || text->isModified(); }
    DiskChoice AskAboutFile();
    DiskChoice SettleFile(const QByteArray& found);
    void LeaveFile();  // which gets a window of its own
    void SourceChanged();
    void KeepCopy();
    void CallConsole(const QByteArray& words, const QString& done);
    void StartConsole(const QByteArray& words, const QString& done, int tries);

    const EditorHooks& hooks;
    Habits& habits;
    BasicEdit* text;
    FindBar* findBar;
    ProcedureBox* procedures;
    QLabel* place;
    QLabel* format;
    HelpPane* help = nullptr;  // made when it is first asked for
    Recovery recovery;
    QTimer copyTimer;
    QString path;          // absolute; empty for a text without a file
    QString proposedPath;  // for "Save as", when the text has left its file
    bool utf8 = false;     // of the file
    bool unsaved = false;  // no file holds the text, whatever was or was not typed
    QByteArray known;      // digest of the file as it was read or saved; empty: it was not there
    QByteArray asked;      // digest of the last change that the user was asked about
};

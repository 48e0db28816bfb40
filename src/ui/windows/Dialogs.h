// Modal dialogs. They return when the user has answered. Interface thread.
#pragma once

#include <QString>

struct FileChoice;

enum class MessageButtons { kOk, kYesNo };

// Shows a message; true for OK or Yes.
bool AskMessage(const QString& title, const QString& text, MessageButtons buttons);

// Asks for one line of text. Empty for a cancelled dialog.
QString AskText(const QString& title, const QString& prompt, const QString& preset);

// As AskText, with what is typed hidden. The caller overwrites the text when it is done
// with it; the toolkit's own field is freed without that.
QString AskSecret(const QString& title, const QString& prompt);

struct FontChoice {
    bool accepted = false;
    QString name;
    int size = 0;  // points
};

FontChoice AskFont(const QString& name, int size);

// Answers that tests put in place of dialogs. While one is set no dialog opens. The
// procedures are those of DialogAnswers; nullptr for the real dialogs again.
struct DialogAnswers {
    bool (*message)(const QString& title, const QString& text) = nullptr;
    QString (*text)(const QString& title, const QString& prompt, const QString& preset) = nullptr;
    QString (*secret)(const QString& title, const QString& prompt) = nullptr;
    FileChoice (*file)(const QString& title, const QString& preset) = nullptr;
    FontChoice (*font)(const QString& name, int size) = nullptr;
};
void AnswerDialogs(const DialogAnswers* answers);

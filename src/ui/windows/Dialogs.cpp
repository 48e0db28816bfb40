#include "ui/windows/Dialogs.h"

#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>

#include "base/Pacing.h"
#include "ui/windows/DialogsInternal.h"
#include "ui/windows/PBQMainWindowInternal.h"
#include "ui/windows/WindowsInternal.h"

namespace {

const DialogAnswers* answers = nullptr;

// The program joins lines by CR in places; a label breaks at LF.
QString ShownLines(QString text) {
    return text.replace("\r\n", "\n").replace('\r', '\n');
}

// An empty answer and a cancelled dialog are the same to the program.
QString AskLine(const QString& title, const QString& prompt, const QString& preset,
                QLineEdit::EchoMode echo) {
    bool accepted = false;
    const QString text =
        QInputDialog::getText(ActiveProgramWindow(), title, prompt, echo, preset, &accepted);
    return accepted ? text : QString();
}

}  // namespace

void AnswerDialogs(const DialogAnswers* given) {
    answers = given;
}

// A program that is about to end asks nothing: each dialog is cancelled before it opens.
const DialogAnswers* AnswersInPlace() {
    static const DialogAnswers cancelled;
    return LeaveRequested() ? &cancelled : answers;
}

// Texts come from files and devices, too: what looks like markup is text.
bool AskMessage(const QString& title, const QString& text, MessageButtons buttons) {
    if (const DialogAnswers* given = AnswersInPlace())
        return given->message && given->message(title, text);
    QMessageBox box(ActiveProgramWindow());
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(ShownLines(text));
    const bool question = buttons == MessageButtons::kYesNo;
    box.setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No
                                    : QMessageBox::StandardButtons(QMessageBox::Ok));
    const int answer = box.exec();
    return answer == QMessageBox::Yes || answer == QMessageBox::Ok;
}

QString AskText(const QString& title, const QString& prompt, const QString& preset) {
    if (const DialogAnswers* given = AnswersInPlace())
        return given->text ? given->text(title, prompt, preset) : QString();
    return AskLine(title, prompt, preset, QLineEdit::Normal);
}

QString AskSecret(const QString& title, const QString& prompt) {
    if (const DialogAnswers* given = AnswersInPlace())
        return given->secret ? given->secret(title, prompt) : QString();
    return AskLine(title, prompt, QString(), QLineEdit::Password);
}

FontChoice AskFont(const QString& name, int size) {
    if (const DialogAnswers* given = AnswersInPlace())
        return given->font ? given->font(name, size) : FontChoice();
    QFontDialog dialog(QFont(name, size), ActiveProgramWindow());
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    FontChoice choice;
    choice.accepted = dialog.exec() == QDialog::Accepted;
    if (!choice.accepted) return choice;
    choice.name = dialog.selectedFont().family();
    choice.size = dialog.selectedFont().pointSize();
    return choice;
}

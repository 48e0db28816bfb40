#include "ui/windows/FileDialogs.h"

#include <QFileDialog>
#include <QFileInfo>

#include "ui/windows/Dialogs.h"
#include "ui/windows/DialogsInternal.h"
#include "ui/windows/FilePatternsInternal.h"
#include "ui/windows/PBQMainWindowInternal.h"
#include "ui/windows/WindowsInternal.h"

namespace {

// A preset is a folder when it ends in "/", else a name that may have a folder before it.
void SetPreset(QFileDialog& dialog, const QString& preset) {
    if (preset.isEmpty()) return;
    const QFileInfo info(preset);
    dialog.setDirectory(info.path());
    if (!info.fileName().isEmpty()) dialog.selectFile(info.fileName());
}

// The toolkit's own dialog looks alike on every desktop.
FileChoice RunFileDialog(QFileDialog& dialog, const QString& preset, const QString& patterns) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const QStringList filters = ToolkitPatterns(patterns);
    if (!filters.isEmpty()) dialog.setNameFilters(filters);
    SetPreset(dialog, preset);
    if (dialog.exec() != QDialog::Accepted) return {};
    FileChoice choice;
    choice.path = dialog.selectedFiles().value(0);
    choice.pattern = qMax(0, filters.indexOf(dialog.selectedNameFilter()));
    return choice;
}

// Tests answer before any dialog opens.
FileChoice TestAnswer(const QString& title, const QString& preset) {
    const DialogAnswers* answers = AnswersInPlace();
    return answers->file ? answers->file(title, preset) : FileChoice();
}

}  // namespace

FileChoice AskSaveFile(const QString& title, const QString& preset, const QString& patterns,
                       OverwriteQuestion question) {
    if (AnswersInPlace()) return TestAnswer(title, preset);
    QFileDialog dialog(ActiveProgramWindow(), title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, question == OverwriteQuestion::kByCaller);
    return RunFileDialog(dialog, preset, patterns);
}

FileChoice AskOpenFile(const QString& title, const QString& preset, const QString& patterns) {
    if (AnswersInPlace()) return TestAnswer(title, preset);
    QFileDialog dialog(ActiveProgramWindow(), title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return RunFileDialog(dialog, preset, patterns);
}

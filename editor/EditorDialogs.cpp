#include "editor/EditorDialogs.h"

#include <QFileDialog>
#include <QMessageBox>

namespace {

const char kPatterns[] = "BASIC (*.bas *.inc *.lib);;All files (*)";

QString AskOpenPath(QWidget* window, const QString& near) {
    return QFileDialog::getOpenFileName(window, "Open", near, kPatterns);
}

QString AskSavePath(QWidget* window, const QString& near) {
    return QFileDialog::getSaveFileName(window, "Save as", near.isEmpty() ? "program.bas" : near,
                                        kPatterns);
}

// Names come from the file system: what looks like markup is text.
int AskMessage(QWidget* window, const QString& text, QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::Warning, "KWEdit", QString(), buttons, window);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    return box.exec();
}

ChangesAnswer AskUnsavedChanges(QWidget* window, const QString& name) {
    const int answer = AskMessage(window, "Save the changes of " + name + "?",
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    if (answer == QMessageBox::Save) return ChangesAnswer::kSave;
    return answer == QMessageBox::Discard ? ChangesAnswer::kDiscard : ChangesAnswer::kCancel;
}

void TellTrouble(QWidget* window, const QString& sentence) {
    AskMessage(window, sentence, QMessageBox::Ok);
}

}  // namespace

EditorDialogs RealDialogs() {
    return {AskOpenPath, AskSavePath, AskUnsavedChanges, TellTrouble};
}

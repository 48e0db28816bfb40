#include "editor/EditorDialogs.h"

#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace {

const char kAnswer[] = "answer";
const char kPatterns[] = "BASIC (*.bas *.inc *.lib);;All files (*)";

QString AskOpenPath(QWidget* window, const QString& near) {
    return QFileDialog::getOpenFileName(window, "Open", near, kPatterns);
}

// The dialog adds the ending before it asks whether a file that exists may go.
QString AskSavePath(QWidget* window, const QString& near) {
    QFileDialog dialog(window, "Save as", near.isEmpty() ? "program.bas" : near, kPatterns);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("bas");
    if (!near.isEmpty()) dialog.selectFile(near);
    return dialog.exec() ? dialog.selectedFiles().value(0) : QString();
}

// Names come from the file system: what looks like markup is text.
QString Ask(QWidget* window, const QString& question, const QStringList& answers) {
    QMessageBox box(QMessageBox::Warning, "KWEdit", QString(), QMessageBox::NoButton, window);
    box.setTextFormat(Qt::PlainText);
    box.setText(question);
    QPushButton* last = nullptr;
    for (const QString& answer : answers) {
        last = box.addButton(
            answer, answer == answers.last() ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
        last->setProperty(kAnswer, answer);  // styles add an accelerator to the caption
        if (answer == answers.first()) box.setDefaultButton(last);
    }
    box.setEscapeButton(last);
    box.exec();
    const QAbstractButton* clicked = box.clickedButton();
    return clicked ? clicked->property(kAnswer).toString() : answers.last();
}

int AskLineNumber(QWidget* window, int most) {
    bool accepted = false;
    const int line = QInputDialog::getInt(window, "Go to line", QString("Line, 1 to %1").arg(most),
                                          1, 1, most, 1, &accepted);
    return accepted ? line : 0;
}

QFont AskFont(QWidget* window, const QFont& now) {
    bool accepted = false;
    const QFont font =
        QFontDialog::getFont(&accepted, now, window, "Font", QFontDialog::MonospacedFonts);
    return accepted ? font : now;
}

bool AskPrinter(QWidget* window, QPrinter& printer) {
    return QPrintDialog(&printer, window).exec() == QDialog::Accepted;
}

}  // namespace

EditorDialogs RealDialogs() {
    return {AskOpenPath, AskSavePath, Ask, AskLineNumber, AskFont, AskPrinter};
}

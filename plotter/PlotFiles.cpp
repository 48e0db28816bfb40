// The files that a window reads and writes.
#include <QFileDialog>
#include <QMessageBox>
#include <QSaveFile>
#include <QStatusBar>

#include "plotter/CsvText.h"
#include "plotter/PlotCommands.h"
#include "plotter/PlotWindow.h"

namespace {

constexpr int kMessageTime = 8000;  // milliseconds
const char kCsv[] = "Comma separated values (*.csv);;All files (*)";
const char kPictures[] = "PNG picture (*.png);;PDF document (*.pdf)";

// That of the kind of file that is chosen.
QString EndingOf(const QString& filter) {
    return filter.section("*.", 1).section(')', 0, 0);
}

}  // namespace

void PlotWindow::Tell(const QString& sentence, bool good) {
    if (!good) QMessageBox::warning(this, "KWPlot", sentence);
    if (good) statusBar()->showMessage(sentence, kMessageTime);
}

// Asks before a file is replaced; a log goes on in one that is there.
QString PlotWindow::AskPath(const QString& title, const QString& name, const QString& filters) {
    QFileDialog dialog(this, title, habits.Folder(), filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, name.isEmpty());
    dialog.selectFile(name);
    dialog.setDefaultSuffix(EndingOf(filters));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
            [&dialog](const QString& filter) { dialog.setDefaultSuffix(EndingOf(filter)); });
    if (dialog.exec() != QDialog::Accepted) return QString();
    const QString path = dialog.selectedFiles().value(0);
    habits.SetFolder(QFileInfo(path).absolutePath());
    return path;
}

void PlotWindow::AskOpenRun() {
    const QString path =
        QFileDialog::getOpenFileName(this, "Open a recorded run", habits.Folder(),
                                     "Recorded runs (*.csv *.txt *.log);;All files (*)");
    if (path.isEmpty()) return;
    habits.SetFolder(QFileInfo(path).absolutePath());
    OpenRun(path);
}

void PlotWindow::SaveCsv() {
    const QString path = AskPath("Save as CSV", "run.csv", kCsv);
    if (path.isEmpty()) return;
    QSaveFile file(path);
    const bool saved =
        file.open(QIODevice::WriteOnly) && WriteCsv(recording, file) && file.commit();
    Tell(saved ? "Saved " + path : path + " cannot be written: " + file.errorString(), saved);
}

void PlotWindow::SavePicture() {
    const QString path = AskPath("Save the picture", "plot.png", kPictures);
    if (path.isEmpty()) return;
    const bool saved = view->SavePicture(path);
    Tell(saved ? "Saved " + path : path + " cannot be written", saved);
}

void PlotWindow::ToggleLog() {
    if (log.IsOpen()) {
        log.End();
    } else {
        const QString path = AskPath("Log to a file, behind what is in it", "", kCsv);
        if (!path.isEmpty() && !log.Begin(path)) Tell(path + " cannot be written", false);
    }
    ShowTicks(*this);
    ShowState();
}

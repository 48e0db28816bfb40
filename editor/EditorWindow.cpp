#include "editor/EditorWindow.h"

#include <Qsci/qsciprinter.h>

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include "editor/BasicIndex.h"
#include "editor/Procedures.h"
#include "editor/WindowCommands.h"

namespace {

constexpr int kMessageTime = 8000;  // milliseconds
constexpr int kCopyDelay = 2000;    // milliseconds from a change to the copy of it
constexpr QSize kFirstSize(900, 700);
constexpr double kMostOfScreen = 0.9;
constexpr int kStatusGap = 8;  // pixels
constexpr int kMostSteps = 20;
constexpr int kCascade = 28;  // pixels from a window to the next

// What was remembered is the place of the last window: another one there would hide it.
void StepAside(QWidget& window) {
    const auto taken = [&window] {
        for (const QWidget* other : QApplication::topLevelWidgets()) {
            const QPoint apart = other->geometry().topLeft() - window.geometry().topLeft();
            const bool there = other != &window && other->isVisible() && other->isWindow();
            if (there && apart.manhattanLength() < kCascade) return true;
        }
        return false;
    };
    for (int i = 0; i < kMostSteps && taken(); ++i) {
        window.move(window.pos() + QPoint(kCascade, kCascade));
    }
}

QString FirstWordOf(const QString& words) {
    static const QRegularExpression word("^\\W*([\\w.]+\\$?)");
    return word.match(words).captured(1);
}

}  // namespace

EditorWindow::EditorWindow(const EditorHooks& given, Habits& kept)
    : hooks(given),
      habits(kept),
      text(new BasicEdit(this)),
      findBar(new FindBar(text, this)),
      procedures(new ProcedureBox(text, this)),
      place(new QLabel(this)),
      format(new QLabel(this)),
      recovery(kept) {
    setAttribute(Qt::WA_DeleteOnClose);
    BuildMiddle();
    BuildStatusLine();
    AddCommands(*this, habits);
    resize(kFirstSize.boundedTo(screen()->availableSize() * kMostOfScreen));
    restoreGeometry(habits.Place());
    StepAside(*this);
    copyTimer.setSingleShot(true);
    copyTimer.setInterval(kCopyDelay);
    connect(&copyTimer, &QTimer::timeout, this, [this] { KeepCopy(); });
    ShowName();
    text->setFocus();
}

void EditorWindow::BuildMiddle() {
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(text);
    column->addWidget(findBar);
    setCentralWidget(middle);
    text->SetSourceFont(habits.Font());
    text->zoomTo(habits.Zoom());
    connect(text, &QsciScintilla::cursorPositionChanged, this, [this] { ShowPlace(); });
    connect(text, &QsciScintilla::modificationChanged, this, [this] { SourceChanged(); });
    connect(text, &QsciScintilla::textChanged, this, [this] { SourceChanged(); });
    connect(text, &QsciScintillaBase::SCN_URIDROPPED, this, [this](const QUrl& address) {
        if (address.isLocalFile()) hooks.openFile(address.toLocalFile());
    });
}

void EditorWindow::BuildStatusLine() {
    auto* port = new QLabel(QString("Console port %1").arg(hooks.ports.control), this);
    for (QLabel* label : {place, format, port}) {
        label->setContentsMargins(kStatusGap, 0, kStatusGap, 0);
        statusBar()->addPermanentWidget(label);
    }
}

bool EditorWindow::IsPristine() const {
    return path.isEmpty() && !IsChanged() && text->length() == 0;
}

QString EditorWindow::Name() const {
    const QString named = path.isEmpty() ? proposedPath : path;
    return named.isEmpty() ? "New text" : QFileInfo(named).fileName();
}

void EditorWindow::Tell(const QString& sentence) {
    statusBar()->showMessage(sentence, kMessageTime);
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = true;
    if (IsChanged()) {
        const QString answer = hooks.dialogs.ask(this, "Save the changes of " + Name() + "?",
                                                 {"Save", "Don't save", "Cancel"});
        mayClose = answer == "Don't save" || (answer == "Save" && Save());
    }
    event->setAccepted(mayClose);
    if (!mayClose) return;
    copyTimer.stop();
    recovery.Drop();
    habits.SetPlace(saveGeometry(),
                    static_cast<int>(text->SendScintilla(QsciScintilla::SCI_GETZOOM)));
}

bool EditorWindow::event(QEvent* event) {
    // Later, because a question must not come up in the middle of the change of windows.
    if (event->type() == QEvent::WindowActivate)
        QTimer::singleShot(0, this, [this] { LookAtFile(); });
    return QMainWindow::event(event);
}

void EditorWindow::AskOpen() {
    const QString wanted = hooks.dialogs.openPath(this, path);
    if (!wanted.isEmpty()) hooks.openFile(wanted);
}

void EditorWindow::GoToLine() {
    const int line = hooks.dialogs.lineNumber(this, text->lines());
    if (line > 0) text->ShowLine(line);
}

void EditorWindow::GoToReportedLine() {
    const int line = ReportedLine(QApplication::clipboard()->text());
    if (line == 0) return Tell("Copy the board's report first: it names the line as [n].");
    text->ShowLine(line);
}

void EditorWindow::ShowHelp() {
    const QString before = TextBeforeCursor(*text), behind = TextBehindCursor(*text);
    const int start = before.lastIndexOf(QRegularExpression("[^\\w.$]")) + 1;
    const QString rest = before.mid(start) + behind;
    const QString word = FirstWordOf(rest);
    const QString previous = before.left(start).simplified().section(' ', -1);
    const int end = rest.indexOf(word) + word.size();
    if (!help) {
        help = new HelpPane(hooks.helpFolder, this);
        addDockWidget(Qt::RightDockWidgetArea, help);
        resizeDocks({help}, {width() * 2 / 5}, Qt::Horizontal);
    }
    help->ShowPlace(PlaceInIndex(previous, word, FirstWordOf(rest.mid(end))));
}

void EditorWindow::Print() {
    QsciPrinter printer;
    printer.setDocName(Name());
    if (!hooks.dialogs.printer(this, printer)) return;
    Tell(printer.printRange(text) ? "Printed " + Name() : "It could not be printed.");
}

void EditorWindow::ChooseFont() {
    const QFont font = hooks.dialogs.font(this, text->SourceFont());
    text->SetSourceFont(font);
    habits.SetFont(font);
}

void EditorWindow::ShowPlace() {
    int line = 0, index = 0;
    text->getCursorPosition(&line, &index);
    place->setText(QString("Line %1, column %2").arg(line + 1).arg(index + 1));
}

void EditorWindow::ShowName() {
    const char* ends = text->eolMode() == QsciScintilla::EolWindows ? "CR LF"
                       : text->eolMode() == QsciScintilla::EolMac   ? "CR"
                                                                    : "LF";
    format->setText(QString("%1, %2").arg(utf8 ? "UTF-8" : "8 bit", ends));
    setWindowTitle(Name() + "[*] - KWEdit");
    setWindowModified(IsChanged());
    ShowPlace();
}

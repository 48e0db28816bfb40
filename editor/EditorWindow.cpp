#include "editor/EditorWindow.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "editor/BasicHighlighter.h"
#include "editor/ConsoleLink.h"

namespace {

constexpr int kMessageTime = 8000;  // milliseconds
constexpr int kTabBlanks = 4;
constexpr int kDarkBelow = 128;  // lightness of the ground, 0 to 255
constexpr QSize kFirstSize(820, 620);

}  // namespace

struct EditorWindow::Command {
    const char* menu;
    const char* caption;  // empty: a separator
    const char* keys;
    void (EditorWindow::*act)();     // of the window, or
    void (QPlainTextEdit::*edit)();  // of the text
    bool inToolBar;
};

// clang-format off
const EditorWindow::Command EditorWindow::kCommands[] = {
    {"&File", "&New",            "Ctrl+N",       &EditorWindow::NewWindow,    nullptr, true},
    {"&File", "&Open...",        "Ctrl+O",       &EditorWindow::AskOpen,      nullptr, true},
    {"&File", "&Save",           "Ctrl+S",       &EditorWindow::SaveCommand,  nullptr, true},
    {"&File", "Save &as...",     "Ctrl+Shift+S", &EditorWindow::SaveAsCommand, nullptr, false},
    {"&File", "",                "",             nullptr,                     nullptr, false},
    {"&File", "&Load to device", "F5",           &EditorWindow::LoadToDevice, nullptr, true},
    {"&File", "",                "",             nullptr,                     nullptr, false},
    {"&File", "&Close",          "Ctrl+W",       &EditorWindow::CloseWindow,  nullptr, false},
    {"&Edit", "&Undo",           "Ctrl+Z",       nullptr, &QPlainTextEdit::undo,      false},
    {"&Edit", "&Redo",           "Ctrl+Y",       nullptr, &QPlainTextEdit::redo,      false},
    {"&Edit", "",                "",             nullptr,                     nullptr, false},
    {"&Edit", "Cu&t",            "Ctrl+X",       nullptr, &QPlainTextEdit::cut,       false},
    {"&Edit", "&Copy",           "Ctrl+C",       nullptr, &QPlainTextEdit::copy,      false},
    {"&Edit", "&Paste",          "Ctrl+V",       nullptr, &QPlainTextEdit::paste,     false},
    {"&Edit", "Select &all",     "Ctrl+A",       nullptr, &QPlainTextEdit::selectAll, false},
    {"&Edit", "",                "",             nullptr,                     nullptr, false},
    {"&Edit", "&Find...",        "Ctrl+F",       &EditorWindow::ShowFind,     nullptr, true},
    {"&Edit", "Find &next",      "F3",           &EditorWindow::FindNext,     nullptr, false},
    {"&Edit", "Find pre&vious",  "Shift+F3",     &EditorWindow::FindPrevious, nullptr, false},
    {"&View", "&Larger",         "Ctrl++",       &EditorWindow::Larger,       nullptr, false},
    {"&View", "&Smaller",        "Ctrl+-",       &EditorWindow::Smaller,      nullptr, false},
};
// clang-format on

EditorWindow::EditorWindow(const EditorHooks& given)
    : hooks(given),
      text(new QPlainTextEdit(this)),
      findBar(new FindBar(text, this)),
      place(new QLabel(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    resize(kFirstSize);
    auto* middle = new QWidget(this);
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(text);
    column->addWidget(findBar);
    setCentralWidget(middle);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setTabStopDistance(kTabBlanks * text->fontMetrics().horizontalAdvance(' '));
    text->setAccessibleName("Source");
    new BasicHighlighter(text->document(), palette().base().color().lightness() < kDarkBelow);
    statusBar()->addPermanentWidget(place);
    connect(text, &QPlainTextEdit::cursorPositionChanged, this, [this] { ShowPlace(); });
    connect(text, &QPlainTextEdit::modificationChanged, this, &QWidget::setWindowModified);
    AddCommands();
    ShowPlace();
    ShowName();
    text->setFocus();
}

void EditorWindow::AddCommands() {
    QToolBar* bar = addToolBar("Commands");
    bar->setMovable(false);
    QMenu* menu = nullptr;
    for (const Command& command : kCommands) {
        if (!menu || menu->title() != command.menu) menu = menuBar()->addMenu(command.menu);
        if (!*command.caption) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(command.caption);
        action->setShortcut(QKeySequence(command.keys));
        if (command.act)
            connect(action, &QAction::triggered, this, [=] { (this->*command.act)(); });
        if (command.edit) connect(action, &QAction::triggered, text, command.edit);
        if (command.inToolBar) bar->addAction(action);
    }
}

bool EditorWindow::OpenFile(const QString& wanted) {
    SourceText source;
    const QString trouble = ReadSource(wanted, source);
    if (!trouble.isEmpty()) {
        hooks.dialogs.trouble(this, trouble);
        return false;
    }
    path = QFileInfo(wanted).absoluteFilePath();
    TakeSource(source);
    ShowName();
    return true;
}

void EditorWindow::ShowNewText(const QString& fresh) {
    path.clear();
    SourceText source;
    source.text = fresh;
    TakeSource(source);
    text->document()->setModified(true);
    ShowName();
}

void EditorWindow::TakeSource(const SourceText& source) {
    text->setPlainText(source.text);
    format = source;
    format.text.clear();
}

bool EditorWindow::Save() {
    return path.isEmpty() ? SaveAs() : SaveTo(path);
}

bool EditorWindow::SaveAs() {
    const QString target = hooks.dialogs.savePath(this, path);
    return !target.isEmpty() && SaveTo(QFileInfo(target).absoluteFilePath());
}

// The raw text, because the plain one has blanks for characters 160.
bool EditorWindow::SaveTo(const QString& target) {
    SourceText source = format;
    source.text = text->document()->toRawText();
    source.text.replace(QChar::ParagraphSeparator, '\n');
    const QString trouble = WriteSource(target, source);
    if (!trouble.isEmpty()) {
        hooks.dialogs.trouble(this, trouble);
        return false;
    }
    path = target;
    text->document()->setModified(false);
    ShowName();
    statusBar()->showMessage("Saved " + path, kMessageTime);
    return true;
}

void EditorWindow::LoadToDevice() {
    if (!Save()) return;
    SendToConsole(this, hooks.controlPort, path, [this](const QString& sentence) {
        statusBar()->showMessage(sentence, kMessageTime);
    });
}

bool EditorWindow::IsPristine() const {
    return path.isEmpty() && !text->document()->isModified() && text->document()->isEmpty();
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = true;
    if (text->document()->isModified()) {
        const QString name = path.isEmpty() ? "this new text" : QFileInfo(path).fileName();
        const ChangesAnswer answer = hooks.dialogs.unsavedChanges(this, name);
        mayClose = answer == ChangesAnswer::kDiscard || (answer == ChangesAnswer::kSave && Save());
    }
    event->setAccepted(mayClose);
}

void EditorWindow::AskOpen() {
    const QString wanted = hooks.dialogs.openPath(this, path);
    if (wanted.isEmpty()) return;
    if (!IsPristine()) return hooks.openWindow(wanted);
    OpenFile(wanted);
}

void EditorWindow::NewWindow() {
    hooks.newWindow();
}

void EditorWindow::CloseWindow() {
    close();
}

void EditorWindow::SaveCommand() {
    Save();
}

void EditorWindow::SaveAsCommand() {
    SaveAs();
}

void EditorWindow::ShowFind() {
    findBar->Ask();
}

void EditorWindow::FindNext() {
    findBar->Find(false);
}

void EditorWindow::FindPrevious() {
    findBar->Find(true);
}

void EditorWindow::Larger() {
    text->zoomIn();
}

void EditorWindow::Smaller() {
    text->zoomOut();
}

void EditorWindow::ShowPlace() {
    const QTextCursor cursor = text->textCursor();
    place->setText(QString("Line %1, column %2")
                       .arg(cursor.blockNumber() + 1)
                       .arg(cursor.positionInBlock() + 1));
}

void EditorWindow::ShowName() {
    const QString name = path.isEmpty() ? "New text" : QFileInfo(path).fileName();
    setWindowTitle(name + "[*] - KWEdit");
    setWindowModified(text->document()->isModified());
}

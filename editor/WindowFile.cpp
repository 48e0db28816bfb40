// A window and its file: reading, saving, changes from outside, and the copy of unsaved work.
#include <QDateTime>
#include <QFileInfo>

#include "editor/EditorWindow.h"

namespace {

// "a.bas" beside it as "a (mine).bas", "a (mine 2).bas" ...
QString NameBeside(const QString& path) {
    const QFileInfo file(path);
    const QString ending = file.suffix().isEmpty() ? QString() : '.' + file.suffix();
    QString name;
    for (int i = 1; name.isEmpty() || QFileInfo::exists(name); ++i) {
        const QString number = i == 1 ? QString() : QString(" %1").arg(i);
        name = file.path() + '/' + file.completeBaseName() + " (mine" + number + ')' + ending;
    }
    return name;
}

}  // namespace

QByteArray EditorWindow::Bytes() const {
    return FileBytes(text->bytes(0, text->length()).left(text->length()), utf8);
}

bool EditorWindow::Read(const QString& wanted) {
    SourceText source;
    const QString trouble = ReadSource(wanted, source);
    if (!trouble.isEmpty()) {
        hooks.dialogs.ask(this, trouble, {"OK"});
        return false;
    }
    path = QFileInfo(wanted).absoluteFilePath();
    utf8 = source.utf8;
    unsaved = false;
    known = asked = source.digest;
    text->ShowSource(source.text);
    ShowName();
    return true;
}

bool EditorWindow::OpenFile(const QString& wanted) {
    if (!Read(wanted)) return false;
    habits.AddRecentFile(path);
    if (QFileInfo::exists(CopyOfFile(path))) OfferCopy(CopyOfFile(path));
    return true;
}

void EditorWindow::ShowNewText(const QString& fresh) {
    text->ShowSource(fresh);
    unsaved = true;
    ShowName();
    SourceChanged();
}

void EditorWindow::OfferCopy(const QString& copy) {
    SourceText left;
    if (!ReadSource(copy, left).isEmpty()) return;
    QString answer = "Delete";
    if (left.digest != DigestOf(Bytes())) {
        const QString date = QFileInfo(copy).lastModified().toString("yyyy-MM-dd hh:mm");
        answer = hooks.dialogs.ask(this,
                                   "Changes of " + Name() + " that were not saved, of " + date +
                                       ", were found. Show them?",
                                   {"Show", "Delete", "Later"});
    }
    if (answer == "Later") return;
    recovery.Adopt(copy);
    if (answer == "Delete") return recovery.Drop();
    utf8 = left.utf8;
    ShowNewText(left.text);
}

bool EditorWindow::Save() {
    return path.isEmpty() ? SaveAs() : SaveTo(path, known);
}

// The dialog has asked whether another file may be replaced.
bool EditorWindow::SaveAs() {
    const QString chosen = hooks.dialogs.savePath(this, path.isEmpty() ? proposedPath : path);
    if (chosen.isEmpty()) return false;
    const QString target = QFileInfo(chosen).absoluteFilePath();
    QWidget* holder = hooks.holder(target);
    if (!holder || holder == this) {
        return SaveTo(target, target == path ? known : FileDigest(target));
    }
    hooks.dialogs.ask(this, target + " is open in another window.", {"OK"});
    holder->activateWindow();
    return false;
}

bool EditorWindow::SaveTo(const QString& target, const QByteArray& expected) {
    const QByteArray found = FileDigest(target);
    if (!found.isEmpty() && found != expected && SettleFile(found) != DiskChoice::kMine) {
        return false;
    }
    const QByteArray bytes = Bytes();
    const QString trouble = WriteWhole(target, bytes);
    if (!trouble.isEmpty()) {
        hooks.dialogs.ask(this, trouble + " The text is still here.", {"OK"});
        return false;
    }
    path = target;
    known = asked = DigestOf(bytes);
    unsaved = false;
    text->setModified(false);
    SourceChanged();
    habits.AddRecentFile(path);
    ShowName();
    Tell("Saved " + path);
    return true;
}

void EditorWindow::LookAtFile() {
    if (path.isEmpty()) return;
    const QByteArray found = FileDigest(path);
    if (found == known || found == asked) return;
    asked = found;
    if (!found.isEmpty()) {
        SettleFile(found);
        return;
    }
    // What is here may be all that is left of it.
    unsaved = true;
    SourceChanged();
    Tell(path + " is no longer there, or can't be read. Save writes it anew.");
}

EditorWindow::DiskChoice EditorWindow::AskAboutFile() {
    const QString mine = QFileInfo(NameBeside(path)).fileName();
    const QString question =
        "Another program has changed " + path +
        ".\n\nReload shows the file and drops the text of this window. Keep mine lets a save "
        "replace the file. Show both opens the file in a window of its own, and this text "
        "becomes " +
        mine + '.';
    const QStringList answers = {"Reload", "Keep mine", "Show both", "Later"};
    const int chosen = answers.indexOf(hooks.dialogs.ask(this, question, answers));
    return chosen < 0 ? DiskChoice::kLater : static_cast<DiskChoice>(chosen);
}

EditorWindow::DiskChoice EditorWindow::SettleFile(const QByteArray& found) {
    asked = found;
    const DiskChoice choice = AskAboutFile();
    if (choice == DiskChoice::kMine) known = found;
    if (choice == DiskChoice::kTheirs) Read(path);
    if (choice == DiskChoice::kBoth) LeaveFile();
    return choice;
}

void EditorWindow::LeaveFile() {
    const QString file = path;
    proposedPath = NameBeside(file);
    path.clear();
    known.clear();
    unsaved = true;
    ShowName();
    SourceChanged();
    hooks.openFile(file);
}

// The copy follows the text: it is written a while after a change, and goes when nothing is
// left to lose.
void EditorWindow::SourceChanged() {
    setWindowModified(IsChanged());
    if (!IsChanged()) {
        copyTimer.stop();
        recovery.Drop();
    } else if (!copyTimer.isActive()) {
        copyTimer.start();
    }
}

void EditorWindow::KeepCopy() {
    if (IsChanged() && !recovery.Write(path, Bytes())) {
        Tell("No copy of the unsaved changes can be written.");
    }
}

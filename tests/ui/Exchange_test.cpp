// What comes from and goes to other programs and the user: drops, the clipboard, dialogs, and
// the signals that end a program.
#include "tests/ui/UiTest.h"

namespace {

using Drops = UiTest;
using Dialogs = UiTest;

// Asks, acts on the dialog as soon as it stands, and gives the answer.
template <typename Ask>
auto With(const std::function<void(QDialog*)>& act, Ask ask) {
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        look.stop();
        EXPECT_EQ(dialog->parentWidget(), WidgetOfWindow(kTestWindow));
        act(dialog);
    });
    look.start(5);
    return ask();
}

TEST_F(Drops, AreOfTheFormatAskedForAndOfLocalFiles) {
    TextEntryGadget(53, 0, 0, 100, 20, "");
    QMimeData files, text;
    files.setUrls({QUrl::fromLocalFile("/tmp/a b.bas"), QUrl("http://example.org/x"),
                   QUrl::fromLocalFile("/tmp/two\nlines"), QUrl::fromLocalFile("/tmp/c.bas")});
    files.setText("their text");
    text.setText("PRINT 1");
    QWidget* const window = WidgetOfWindow(0);
    EXPECT_FALSE(Drop(window, files));
    EnableWindowDrop(0, DropFormat::kFiles);
    EXPECT_FALSE(Drop(window, text));
    EnableWindowDrop(0, DropFormat::kText);
    EnableGadgetDrop(53, DropFormat::kText);
    // A drop like the one before is another one.
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Drop(window, files));
    EXPECT_TRUE(Drop(WidgetOfGadget(53), files));
    QString told;
    Click(window);  // other events go on to it
    while (WaitForEvent(0) != kNoEvent) {
        told += QString("%1 %2 %3 ").arg(EventNumber()).arg(EventWindow()).arg(EventObject()) +
                (EventDropFormat() == DropFormat::kFiles ? "files " : "text ") + EventDropFiles() +
                "|" + EventDropText() + "; ";
    }
    EXPECT_EQ(told,
              "10 0 -1 files /tmp/a b.bas\n/tmp/c.bas|; 10 0 -1 files /tmp/a b.bas\n/tmp/c.bas|; "
              "11 0 53 text |their text; 17 0 -1 text |; ");
}

// What a dialog shows, with the format of its labels and "*" behind a hidden entry, and what it
// gives when the user types a text and presses a button.
std::string Dialogue(const char* text, const QString& button, const std::function<QString()>& ask) {
    QString shown;
    const auto act = [&](QDialog* dialog) {
        shown = dialog->windowTitle();
        for (auto* label : dialog->findChildren<QLabel*>())
            shown += "|" + QString::number(label->textFormat()) + label->text();
        for (auto* line : dialog->findChildren<QLineEdit*>()) {
            shown += "|" + line->text() + (line->echoMode() == QLineEdit::Password ? "*" : "");
            line->setText(text);
        }
        for (auto* each : dialog->findChildren<QPushButton*>()) {
            shown += "|" + each->text();
            if (each->text() == button) each->click();
        }
    };
    const QString answer = With(act, ask);
    return (shown + ": " + answer).toStdString();
}

// Lines joined by CR stand below each other, and markup is text.
TEST_F(Dialogs, RealOnesStandOverTheProgramsWindow) {
    const auto size = [] { return AskText("New size", "Enter", "101 x 50"); };
    const auto secret = [] { return AskSecret("Passphrase", "Enter"); };
    const auto font = [] {
        const FontChoice choice = AskFont("Liberation Mono", 9);
        return QString("%1 %2 %3").arg(choice.accepted).arg(choice.name).arg(choice.size);
    };
    const auto message = [](MessageButtons buttons) {
        return [=] { return QString::number(AskMessage("About", "<b>1</b>\r2\r\n3", buttons)); };
    };
    const auto question = message(MessageButtons::kYesNo);
    EXPECT_EQ(Dialogue("80x24", "OK", size), "New size|2Enter|101 x 50|OK|Cancel: 80x24");
    EXPECT_EQ(Dialogue("hidden", "OK", secret), "Passphrase|2Enter|*|OK|Cancel: hidden");
    EXPECT_EQ(Dialogue("", "&Yes", question), "About|2|0<b>1</b>\n2\n3|&Yes|&No: 1");
    EXPECT_EQ(Dialogue("", "OK", message(MessageButtons::kOk)), "About|2|0<b>1</b>\n2\n3|OK: 1");
    EXPECT_EQ(With([](QDialog* dialog) { dialog->reject(); }, font), "0  0");
    const auto choose = [](QDialog* dialog) {
        auto* fonts = static_cast<QFontDialog*>(dialog);
        EXPECT_TRUE(fonts->testOption(QFontDialog::DontUseNativeDialog));
        fonts->setCurrentFont(QFont("Liberation Serif", 13));
        dialog->accept();
    };
    EXPECT_EQ(With(choose, font), "1 Liberation Serif 13");
}

TEST_F(Dialogs, AskForFiles) {
    const QTemporaryDir scratch;
    const QString folder = scratch.path(), patterns = "Basic (*.bas)|*.bas; *.inc|All|*.*";
    QString seen;
    const auto accept = [&seen](QDialog* dialog) {
        auto* files = static_cast<QFileDialog*>(dialog);
        seen = files->windowTitle() + "|" + files->directory().path() + "|" +
               files->findChild<QLineEdit*>()->text() + "|" + files->nameFilters().join(';') +
               QString("|%1 %2 %3")
                   .arg(files->acceptMode())
                   .arg(files->fileMode())
                   .arg(files->options());
        if (files->acceptMode() == QFileDialog::AcceptSave) files->selectNameFilter("All (*)");
        dialog->accept();
    };
    ScratchFolder::Put(folder + "/a.bas", "");
    FileChoice choice =
        With(accept, [&] { return AskSaveFile("Save", folder + "/b.bas", patterns); });
    EXPECT_EQ(choice.path + QString::number(choice.pattern), folder + "/b.bas1");
    EXPECT_EQ(seen, "Save|" + folder + "|b.bas|Basic (*.bas *.inc);All (*)|1 0 16");
    choice = With(accept, [&] { return AskOpenFile("Open", folder + "/a.bas", patterns); });
    EXPECT_EQ(choice.path + QString::number(choice.pattern), folder + "/a.bas0");
    EXPECT_EQ(seen, "Open|" + folder + "|a.bas|Basic (*.bas *.inc);All (*)|0 1 16");
}

// A wait serves the toolkit, and ends when the window is closed. A signal closes it as well, and
// cancels the dialog that stands and those to come.
TEST_F(Dialogs, AndWaitsEndWithTheProgram) {
    bool served = false;
    QTimer::singleShot(1, [&] { served = true; });
    SleepMs(60);
    EXPECT_TRUE(served && !LeaveRequested());
    const auto ask = [] { return AskText("New size", "Enter", "101 x 50"); };
    EXPECT_EQ(With([](QDialog*) { raise(SIGTERM); }, ask), "");
    EXPECT_EQ(Heard(kEventCloseWindow), "2 0 -1 0|");
    EXPECT_FALSE(AskMessage("About", "", MessageButtons::kOk) || AskFont("", 9).accepted);
    EXPECT_EQ(ask() + AskSecret("Passphrase", "Enter") + AskOpenFile("Open", "/tmp/", "").path +
                  AskSaveFile("Save", "/tmp/", "").path,
              "");
    RequestLeave(false);
    WidgetOfWindow(kTestWindow)->close();
    SleepMs(20000);
    EXPECT_TRUE(LeaveRequested());
}

}  // namespace

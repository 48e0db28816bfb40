// What comes from and goes to other programs and the user: drops, the clipboard, dialogs, and
// the signals that end a program.

#include <csignal>

#include "base/Pacing.h"
#include "tests/ui/UiTest.h"

namespace {

// Acts on the next dialog as soon as it stands.
template <typename Action>
void WithDialog(Action action) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, [look, action] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        look->stop();
        look->deleteLater();
        action(dialog);
    });
    look->start(5);
}

using Drops = UiTest;
using Dialogs = UiTest;

TEST_F(Drops, AreOfTheFormatAskedForAndOfLocalFiles) {
    TextEntryGadget(kCommandEntry, 0, 0, 100, 20, "");
    QMimeData files, text;
    files.setUrls({QUrl::fromLocalFile("/tmp/a b.bas"), QUrl("http://example.org/x"),
                   QUrl::fromLocalFile("/tmp/two\nlines"), QUrl::fromLocalFile("/tmp/c.bas")});
    files.setText("as file managers add it");
    text.setText("PRINT 1");
    QWidget* const window = WidgetOfWindow(kTestWindow);
    EXPECT_FALSE(Drop(window, files));
    EnableWindowDrop(kTestWindow, DropFormat::kFiles);
    EXPECT_FALSE(Drop(window, text));
    EnableGadgetDrop(kCommandEntry, DropFormat::kText);
    // A drop like the one before is another one.
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Drop(window, files));
    EXPECT_TRUE(Drop(WidgetOfGadget(kCommandEntry), files));
    EnableWindowDrop(kTestWindow, DropFormat::kText);
    EXPECT_TRUE(Drop(window, text));
    EXPECT_TRUE(Drop(window, files));
    QStringList told;
    while (WaitForEvent(0) != kNoEvent) {
        told += QString("%1 %2 %3 ").arg(EventNumber()).arg(EventWindow()).arg(EventObject()) +
                (EventDropFormat() == DropFormat::kFiles ? EventDropFiles() : "-") + "|" +
                EventDropText();
    }
    const QString paths = "10 0 -1 /tmp/a b.bas\n/tmp/c.bas|";
    EXPECT_EQ(told,
              QStringList({paths, paths,
                           "11 0 " + QString::number(kCommandEntry) + " -|as file managers add it",
                           "10 0 -1 -|PRINT 1", paths}));
}

TEST_F(Dialogs, RealOnesStandOverTheProgramsWindow) {
    WithDialog([](QDialog* dialog) {
        EXPECT_EQ(dialog->parentWidget(), WidgetOfWindow(kTestWindow));
        EXPECT_EQ(dialog->windowTitle(), "New size");
        auto* line = dialog->findChild<QLineEdit*>();
        EXPECT_EQ(dialog->findChild<QLabel*>()->text() + line->text(), "Enter101 x 50");
        EXPECT_EQ(line->echoMode(), QLineEdit::Normal);
        line->setText("80x24");
        dialog->accept();
    });
    EXPECT_EQ(AskText("New size", "Enter", "101 x 50"), "80x24");
    WithDialog([](QDialog* dialog) {
        EXPECT_EQ(dialog->findChild<QLineEdit*>()->echoMode(), QLineEdit::Password);
        dialog->findChild<QLineEdit*>()->setText("secret");
        dialog->accept();
    });
    EXPECT_EQ(AskSecret("Passphrase", "Enter"), "secret");
    for (const bool yes : {true, false}) {
        WithDialog([=](QDialog* dialog) {
            // Lines joined by CR stand below each other, and markup is text.
            auto* box = static_cast<QMessageBox*>(dialog);
            EXPECT_EQ(box->windowTitle() + box->text(), "About<b>one</b>\ntwo\nthree");
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_FALSE(box->button(QMessageBox::Ok));
            box->button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        EXPECT_EQ(AskMessage("About", "<b>one</b>\rtwo\r\nthree", MessageButtons::kYesNo), yes);
    }
    const auto cancel = [](QDialog* dialog) { dialog->reject(); };
    WithDialog(cancel);
    EXPECT_EQ(AskText("New size", "Enter", "101 x 50"), "");
    WithDialog(cancel);
    EXPECT_FALSE(AskFont("Liberation Mono", 9).accepted);
    WithDialog([](QDialog* dialog) {
        static_cast<QFontDialog*>(dialog)->setCurrentFont(QFont("Liberation Serif", 13));
        dialog->accept();
    });
    const FontChoice font = AskFont("Liberation Mono", 9);
    EXPECT_EQ(font.name + QString::number(font.size), "Liberation Serif13");
}

TEST_F(Dialogs, AskForFiles) {
    const QTemporaryDir folder;
    const QString patterns = "Basic (*.bas)|*.bas|All (*.*)|*.*";
    static QString seen;
    const auto accept = [](QDialog* dialog) {
        auto* files = static_cast<QFileDialog*>(dialog);
        seen = files->windowTitle() + "|" + files->directory().path() + "|" +
               files->findChild<QLineEdit*>()->text() + "|" + files->nameFilters().join(';') +
               QString("|%1 %2 ").arg(files->acceptMode()).arg(files->fileMode()) +
               (files->testOption(QFileDialog::DontConfirmOverwrite) ? "silent" : "asks");
        files->selectNameFilter("All (*)");
        dialog->accept();
    };
    QFile(folder.filePath("a.bas")).open(QIODevice::WriteOnly);
    WithDialog(accept);
    FileChoice choice = AskSaveFile("Save", folder.filePath("b.bas"), patterns);
    EXPECT_EQ(choice.path, folder.filePath("b.bas"));
    EXPECT_EQ(choice.pattern, 1);
    EXPECT_EQ(seen, "Save|" + folder.path() + "|b.bas|Basic (*.bas);All (*)|1 0 asks");
    WithDialog(accept);
    choice = AskOpenFile("Open", folder.filePath("a.bas"), patterns);
    EXPECT_EQ(choice.path, folder.filePath("a.bas"));
    EXPECT_EQ(seen, "Open|" + folder.path() + "|a.bas|Basic (*.bas);All (*)|0 1 asks");
    WithDialog([](QDialog* dialog) { dialog->reject(); });
    choice = AskSaveFile("Save", folder.path() + "/", "", OverwriteQuestion::kByCaller);
    EXPECT_TRUE(choice.path.isEmpty() && choice.pattern == 0);
}

// A signal closes the main window, and cancels the dialog that stands and those to come.
TEST_F(Dialogs, EndWithTheProgram) {
    WithDialog([](QDialog*) { raise(SIGTERM); });
    EXPECT_EQ(AskText("New size", "Enter", "101 x 50"), "");
    EXPECT_TRUE(LeaveRequested());
    EXPECT_EQ(TakeEvents(kEventCloseWindow), (Events{{kEventCloseWindow, kMainWindow, -1, 0}}));
    EXPECT_FALSE(AskMessage("About", "", MessageButtons::kOk));
    EXPECT_EQ(AskText("New size", "Enter", "") + AskSecret("Passphrase", "Enter"), "");
    EXPECT_FALSE(AskFont("Liberation Mono", 9).accepted);
    EXPECT_EQ(AskOpenFile("Open", "/tmp/", "").path + AskSaveFile("Save", "/tmp/", "").path, "");
}

// A wait shows what was painted, serves the toolkit, and ends when the window is closed; what
// the user does meanwhile waits its turn.
TEST_F(Dialogs, WaitsServeTheToolkitAndEndWithTheWindow) {
    bool served = false;
    QTimer::singleShot(1, [&] { served = true; });
    const int64_t start = NowMs();
    SleepMs(60);
    EXPECT_GE(NowMs() - start, 60);
    EXPECT_TRUE(served && !LeaveRequested());
    WidgetOfWindow(kTestWindow)->close();
    SleepMs(20000);
    EXPECT_TRUE(LeaveRequested());
    EXPECT_EQ(TakeEvents(kEventCloseWindow).size(), 1u);
}

}  // namespace

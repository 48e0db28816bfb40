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
    EnableGadgetDrop(53, DropFormat::kText);
    // A drop like the one before is another one.
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Drop(window, files));
    EXPECT_TRUE(Drop(WidgetOfGadget(53), files));
    EnableWindowDrop(0, DropFormat::kText);
    EXPECT_TRUE(Drop(window, text) && Drop(window, files));
    QString told;
    while (WaitForEvent(0) != kNoEvent) {
        told += QString("%1 %2 %3 ").arg(EventNumber()).arg(EventWindow()).arg(EventObject()) +
                (EventDropFormat() == DropFormat::kFiles ? "files " : "text ") + EventDropFiles() +
                "|" + EventDropText() + "; ";
    }
    EXPECT_EQ(told,
              "10 0 -1 files /tmp/a b.bas\n/tmp/c.bas|; 10 0 -1 files /tmp/a b.bas\n/tmp/c.bas|; "
              "11 0 53 text |their text; 10 0 -1 text |PRINT 1; "
              "10 0 -1 files /tmp/a b.bas\n/tmp/c.bas|; ");
}

// Lines joined by CR stand below each other, and markup is text.
TEST_F(Dialogs, RealOnesStandOverTheProgramsWindow) {
    static QString seen;
    const auto type = [](const char* text) {
        return [=](QDialog* dialog) {
            auto* line = dialog->findChild<QLineEdit*>();
            seen = dialog->windowTitle() + "|" + dialog->findChild<QLabel*>()->text() + "|" +
                   line->text() + "|" + QString::number(line->echoMode());
            line->setText(text);
            dialog->accept();
        };
    };
    const auto press = [](const char* answer) {
        return [=](QDialog* dialog) {
            auto* box = static_cast<QMessageBox*>(dialog);
            seen =
                box->windowTitle() + "|" + box->text() + "|" + QString::number(box->textFormat());
            for (QAbstractButton* button : box->buttons()) {
                seen += "|" + button->text();
                if (button->text() == answer) button->click();
            }
        };
    };
    const auto cancel = [](QDialog* dialog) { dialog->reject(); };
    const auto askSize = [] { return AskText("New size", "Enter", "101 x 50"); };
    const auto askFont = [] { return AskFont("Liberation Mono", 9); };
    EXPECT_EQ(With(type("80x24"), askSize), "80x24");
    EXPECT_EQ(seen, "New size|Enter|101 x 50|0");
    EXPECT_EQ(With(cancel, askSize), "");
    EXPECT_EQ(With(type("secret"), [] { return AskSecret("Passphrase", "Enter"); }), "secret");
    EXPECT_EQ(seen, "Passphrase|Enter||2");
    for (const bool yes : {true, false}) {
        EXPECT_EQ(With(press(yes ? "&Yes" : "&No"),
                       [] {
                           return AskMessage("About", "<b>one</b>\rtwo\r\nthree",
                                             MessageButtons::kYesNo);
                       }),
                  yes);
        EXPECT_EQ(seen, "About|<b>one</b>\ntwo\nthree|0|&Yes|&No");
    }
    EXPECT_FALSE(With(cancel, askFont).accepted);
    const FontChoice font = With(
        [](QDialog* dialog) {
            static_cast<QFontDialog*>(dialog)->setCurrentFont(QFont("Liberation Serif", 13));
            dialog->accept();
        },
        askFont);
    EXPECT_EQ(font.name + QString::number(font.size), "Liberation Serif13");
}

TEST_F(Dialogs, AskForFiles) {
    const ScratchFolder scratch;
    const QString folder = scratch.folder.path(), patterns = "Basic (*.bas)|*.bas|All (*.*)|*.*";
    QString seen;
    const auto accept = [&seen](QDialog* dialog) {
        auto* files = static_cast<QFileDialog*>(dialog);
        seen = files->windowTitle() + "|" + files->directory().path() + "|" +
               files->findChild<QLineEdit*>()->text() + "|" + files->nameFilters().join(';') +
               QString("|%1 %2 %3")
                   .arg(files->acceptMode())
                   .arg(files->fileMode())
                   .arg(files->options());
        files->selectNameFilter("All (*)");
        dialog->accept();
    };
    ScratchFolder::Put("a.bas", "");
    FileChoice choice =
        With(accept, [&] { return AskSaveFile("Save", folder + "/b.bas", patterns); });
    EXPECT_EQ(choice.path + QString::number(choice.pattern), folder + "/b.bas1");
    EXPECT_EQ(seen, "Save|" + folder + "|b.bas|Basic (*.bas);All (*)|1 0 16");
    choice = With(accept, [&] { return AskOpenFile("Open", folder + "/a.bas", patterns); });
    EXPECT_EQ(choice.path, folder + "/a.bas");
    EXPECT_EQ(seen, "Open|" + folder + "|a.bas|Basic (*.bas);All (*)|0 1 16");
    choice = With([](QDialog* dialog) { dialog->reject(); },
                  [&] { return AskSaveFile("", folder, "", OverwriteQuestion::kByCaller); });
    EXPECT_EQ(choice.path + QString::number(choice.pattern), "0");
}

// A signal closes the main window, and cancels the dialog that stands and those to come.
TEST_F(Dialogs, EndWithTheProgram) {
    const auto ask = [] { return AskText("New size", "Enter", "101 x 50"); };
    EXPECT_EQ(With([](QDialog*) { raise(SIGTERM); }, ask), "");
    EXPECT_TRUE(LeaveRequested());
    EXPECT_EQ(Heard(kEventCloseWindow), "2 0 -1 0|");
    EXPECT_FALSE(AskMessage("About", "", MessageButtons::kOk) || AskFont("", 9).accepted);
    EXPECT_EQ(ask() + AskSecret("Passphrase", "Enter"), "");
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
    EXPECT_EQ(Heard(kEventCloseWindow), "2 0 -1 0|");
}

}  // namespace

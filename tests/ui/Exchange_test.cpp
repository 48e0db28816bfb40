// What comes from and goes to other programs and the user: drops, the clipboard, dialogs.

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "tests/support/Gestures.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/DragDrop.h"
#include "ui/windows/FileDialogs.h"

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

using Drops = WithWindow;
using Dialogs = WithWindow;

TEST_F(Drops, AreOfTheFormatAskedForAndOfLocalFiles) {
    EnableWindowDrop(kTestWindow, DropFormat::kFiles);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/tmp/a b.bas"), QUrl("http://example.org/x"),
                   QUrl::fromLocalFile("/tmp/two\nlines"), QUrl::fromLocalFile("/tmp/c.bas")});
    files.setText("as file managers add it");
    QMimeData text;
    text.setText("PRINT 1");
    EXPECT_FALSE(Drop(WidgetOfWindow(kTestWindow), text));
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(Drop(WidgetOfWindow(kTestWindow), files));
    for (int i = 0; i < 2; ++i) {  // a drop like the one before is another one
        ASSERT_EQ(WaitForEvent(0), kEventWindowDrop);
        EXPECT_EQ(EventDropFiles(), "/tmp/a b.bas\n/tmp/c.bas");
        EXPECT_EQ(EventDropText(), "");
    }
}

TEST_F(Dialogs, RealOnesStandOverTheProgramsWindow) {
    WithDialog([](QDialog* dialog) {
        EXPECT_EQ(dialog->parentWidget(), WidgetOfWindow(kTestWindow));
        EXPECT_EQ(dialog->windowTitle(), "New size");
        dialog->findChild<QLineEdit*>()->setText("80x24");
        dialog->accept();
    });
    EXPECT_EQ(AskText("New size", "Enter", "101 x 50"), "80x24");
    WithDialog([](QDialog* dialog) {
        // Lines joined by CR stand below each other, and markup is text.
        EXPECT_EQ(dialog->findChild<QLabel*>("qt_msgbox_label")->text(), "<b>one</b>\ntwo");
        EXPECT_EQ(dialog->findChild<QLabel*>("qt_msgbox_label")->textFormat(), Qt::PlainText);
        dialog->reject();
    });
    EXPECT_FALSE(AskMessage("About", "<b>one</b>\rtwo", MessageButtons::kYesNo));
    const auto cancel = [](QDialog* dialog) { dialog->reject(); };
    WithDialog(cancel);
    EXPECT_EQ(AskText("New size", "Enter", "101 x 50"), "");
    WithDialog(cancel);
    const FileChoice none = AskSaveFile("Save", "/tmp/*.bas", "Basic (*.bas)|*.bas|All (*.*)|*.*");
    EXPECT_TRUE(none.path.isEmpty() && none.pattern == 0);
    WithDialog([](QDialog* dialog) { dialog->accept(); });
    const FontChoice font = AskFont("Liberation Mono", 9);
    EXPECT_TRUE(font.accepted && font.size == 9);
}

}  // namespace

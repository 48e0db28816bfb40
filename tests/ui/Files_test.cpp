// The explorer list, the path box and the patterns of file dialogs.

#include <QDir>
#include <QLineEdit>
#include <QTreeWidget>

#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "ui/gadgets/ExplorerListGadget.h"
#include "ui/gadgets/PathBoxGadget.h"
#include "ui/windows/FilePatternsInternal.h"

namespace {

QString Rows() {
    QString rows;
    for (int row = 0; row < GadgetItemCount(kPcList); ++row) {
        rows += GadgetItemText(kPcList, row) + (GadgetItemIsFile(kPcList, row) ? "|" : "/|");
    }
    return rows;
}

void DoubleClickRow(int row) {
    auto* list = static_cast<QTreeWidget*>(WidgetOfGadget(kPcList));
    const QPoint at = list->visualItemRect(list->topLevelItem(row)).center();
    Click(list->viewport(), at);
    ClickAgain(list->viewport(), at);
}

const Events kFolderChanged = {GadgetEvent(kPcList, kTypeValueChanged)};
const Events kNothing;

using PathBox = WithWindow;

TEST(ExplorerList, ListsFoldersFirstAndIsWalkedByDoubleClicks) {
    const ScratchFolder scratch;
    const QTemporaryDir& top = scratch.folder;
    QDir().mkpath("Beta/inner");
    QDir().mkpath("alpha");
    ScratchFolder::Put("b.bas", "x");
    ScratchFolder::Put("A.BAS", "");
    OpenTestWindow();
    ExplorerListGadget(kPcList, 0, 0, 400, 300, top.path());
    TakeEvents();
    EXPECT_EQ(GadgetText(kPcList), top.path() + "/");
    EXPECT_EQ(Rows(), "../|alpha/|Beta/|A.BAS|b.bas|");
    EXPECT_FALSE(GadgetItemIsFile(kPcList, 0) || GadgetItemIsFile(kPcList, 1));

    DoubleClickRow(3);  // a file stays where it is
    EXPECT_EQ(TakeEvents(kEventGadget), kNothing);
    DoubleClickRow(2);
    EXPECT_EQ(GadgetText(kPcList), top.path() + "/Beta/");
    EXPECT_EQ(TakeEvents(kEventGadget), kFolderChanged);
    DoubleClickRow(0);
    EXPECT_EQ(GadgetText(kPcList), top.path() + "/");
    EXPECT_EQ(TakeEvents(kEventGadget), kFolderChanged);

    // Setting the folder lists it anew; one that is not there changes nothing.
    ScratchFolder::Put("c.bas", "");
    SetGadgetText(kPcList, GadgetText(kPcList));
    EXPECT_EQ(Rows(), "../|alpha/|Beta/|A.BAS|b.bas|c.bas|");
    SetGadgetText(kPcList, top.filePath("nowhere"));
    SetGadgetText(kPcList, "");
    EXPECT_EQ(GadgetText(kPcList), top.path() + "/");
    SetGadgetText(kPcList, "/");
    EXPECT_EQ(GadgetText(kPcList), "/");
    EXPECT_NE(GadgetItemText(kPcList, 0), "..");
    EXPECT_EQ(TakeEvents(kEventGadget), kNothing);
}

// Who marks a change as its own counts on the echo, so it comes for an equal text too.
TEST_F(PathBox, TellsOfEveryChangeAndOfTheChoice) {
    PathBoxGadget(kPcPathEntry, 0, 0, 400, 30, "/tmp/");
    const Seen changed = GadgetEvent(kPcPathEntry, kTypePathChanged);
    const Seen chosen = GadgetEvent(kPcPathEntry, kTypePathChosen);
    for (int i = 0; i < 2; ++i) {
        SetGadgetText(kPcPathEntry, "/usr/");
        EXPECT_EQ(TakeEvents(kEventGadget), (Events{changed}));
    }
    Key(WidgetOfGadget(kPcPathEntry), Qt::Key_L, "l");
    EXPECT_EQ(GadgetText(kPcPathEntry), "/usr/l");
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{changed}));
    Key(WidgetOfGadget(kPcPathEntry), Qt::Key_Return, "\r");
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{chosen}));
}

TEST(FilePatterns, BecomeTheToolkitsForm) {
    EXPECT_EQ(ToolkitPatterns("Basic (*.bas)|*.bas|Text (*.txt)|*.txt|All files (*.*)|*.*"),
              (QStringList{"Basic (*.bas)", "Text (*.txt)", "All files (*)"}));
    EXPECT_EQ(ToolkitPatterns("Source|*.bas; *.inc"), QStringList{"Source (*.bas *.inc)"});
    EXPECT_EQ(ToolkitPatterns("alone"), QStringList());
}

}  // namespace

// The kinds of gadgets: text, state, items, places, and which changes are events.

#include "tests/support/ScratchFolder.h"
#include "tests/ui/UiTest.h"

namespace {

using Gadgets = UiTest;

// Text and state; of the items their count, the second one, and whether it is selected.
QString Told(int gadget) {
    return QString("'%1' %2, %3 '%4' %5; ")
        .arg(GadgetText(gadget))
        .arg(GadgetState(gadget))
        .arg(GadgetItemCount(gadget))
        .arg(GadgetItemText(gadget, 1))
        .arg(GadgetItemSelected(gadget, 1));
}

// Each kind with a text, a state and items, and what is left when the items are cleared.
TEST_F(Gadgets, EachKindTakesWhatItHas) {
    const struct {
        void (*create)();
        const char* told;
    } rows[] = {
        {[] { ButtonGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 1, 0 '' 0; 'b & <c>' 0, 0 '' 0; "},
        {[] { CheckBoxGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 1, 0 '' 0; 'b & <c>' 0, 0 '' 0; "},
        {[] { TextGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 0, 0 '' 0; 'b & <c>' 0, 0 '' 0; "},
        {[] { ComboBoxGadget(9, 1, 2, 90, 80); }, "'y' 1, 2 'y' 0; '' -1, 0 '' 0; "},
        {[] { ListGadget(9, 1, 2, 90, 80); }, "'y' 1, 2 'y' 1; '' -1, 0 '' 0; "},
        {[] { ScrollBarGadget(9, 1, 2, 90, 80, 1, 9, 5, ScrollDirection::kVertical); },
         "'' 1, 0 '' 0; '' 1, 0 '' 0; "},
        {[] { ContainerGadget(9, 1, 2, 90, 80), CloseGadgetList(); },
         "'' 0, 0 '' 0; '' 0, 0 '' 0; "},
    };
    for (const auto& row : rows) {
        row.create();
        SetGadgetText(9, "b & <c>");
        for (const char* item : {"x", "y"}) AddGadgetItem(9, item);
        SetGadgetState(9, 1);
        SetGadgetItemSelected(9, 1, true);
        QString told = Told(9);
        ClearGadgetItems(9);
        SetGadgetState(9, 0);
        EXPECT_EQ((told + Told(9)).toStdString(), row.told);
    }
    EXPECT_TRUE(TakeEvents(kEventGadget).empty());
}

TEST_F(Gadgets, StandWhereTheyAreTold) {
    const auto place = [](int gadget) {
        return QRect(GadgetX(gadget), GadgetY(gadget), GadgetWidth(gadget), GadgetHeight(gadget));
    };
    LoadNumberedFont(1, "Liberation Mono", 30, kFontBold);
    EXPECT_EQ(LoadNumberedFont(kAnyFont, "", 9, kFontPlain), 1000);
    EXPECT_EQ(LoadNumberedFont(kAnyFont, "", 9, kFontPlain), 1001);
    EXPECT_EQ(LoadNumberedFont(32768, "", 9, kFontPlain), kAnyFont);
    for (const int font : {1000, 1001}) FreeNumberedFont(font);
    ContainerGadget(7, 10, 20, 200, 100);
    SetGadgetFont(-1, 1);
    ButtonGadget(8, 1, 2, 30, 40, "in it");
    CloseGadgetList();
    SetGadgetFont(-1, 2);  // there is none
    TextGadget(9, 5, 6, 70, 120, "beside it");
    TextGadget(10, 5, 6, 70, 60, "one line");
    ResizeGadget(7, kKeep, 25, kKeep, 110);
    ResizeGadget(8, 3, kKeep, 35, kKeep);
    EXPECT_EQ(place(7), QRect(10, 25, 200, 110));
    EXPECT_EQ(place(8), QRect(3, 2, 35, 40));
    EXPECT_EQ(place(99), QRect(0, 0, 0, 0));
    EXPECT_EQ(WidgetOfGadget(8)->parentWidget(), WidgetOfGadget(7));
    EXPECT_EQ(WidgetOfGadget(9)->parentWidget(), WidgetOfGadget(7)->parentWidget());
    for (const int gadget : {8, 9}) EXPECT_EQ(WidgetOfGadget(gadget)->font().pointSize(), 30);
    for (const int gadget : {9, 10}) {
        auto* label = KindOf<QLabel>(gadget);
        EXPECT_EQ(label->wordWrap(), gadget == 9);
        EXPECT_EQ(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    }
    // Its own setting counts, whatever the container's.
    HideGadget(7, true);
    DisableGadget(7, true);
    EXPECT_TRUE(GadgetHidden(7) && GadgetDisabled(7));
    EXPECT_FALSE(GadgetHidden(8) || GadgetDisabled(8) || GadgetHidden(99) || GadgetDisabled(99));
    HideGadget(7, false);
    EXPECT_FALSE(GadgetHidden(7));
    SetGadgetTooltip(8, "tip");
    EXPECT_EQ(GadgetName(8) + GadgetTooltip(8), "tiptip");
    SetGadgetName(8, "name");
    EXPECT_EQ(GadgetName(8) + GadgetTooltip(8) + GadgetName(99), "nametip");
    FreeGadget(7);
    EXPECT_FALSE(GadgetExists(7) || GadgetExists(8));
}

TEST_F(Gadgets, ASplitterKeepsItsTwoAndGivesRoomToTheRightOne) {
    for (const int list : {8, 9}) ListGadget(list, 0, 0, 50, 50);
    SplitterGadget(10, 0, 0, 300, 100, 8, 99);
    EXPECT_FALSE(GadgetExists(10));
    SplitterGadget(10, 0, 0, 300, 100, 8, 9);
    SetGadgetState(10, 120);
    EXPECT_EQ(GadgetState(10), 120);
    ResizeGadget(10, 0, 0, 340, 100);
    EXPECT_EQ(GadgetState(10), 120);
    EXPECT_EQ(GadgetWidth(8), 120);
    EXPECT_GT(GadgetWidth(9), 200);
    SetGadgetState(10, 999);
    EXPECT_TRUE(GadgetState(10) > 200 && GadgetState(10) < 340);
}

TEST_F(Gadgets, ClicksAndTicksAreEventsOfTheUserAlone) {
    ButtonGadget(62, 5, 5, 80, 20, "Connect");
    CheckBoxGadget(50, 5, 60, 100, 20, "Override");
    ScrollBarGadget(5, 100, 0, 20, 200, 0, 100, 40, ScrollDirection::kVertical);
    for (const int gadget : {62, 50, 5}) SetGadgetState(gadget, 1);
    EXPECT_TRUE(TakeEvents(kEventGadget).empty());
    Click(WidgetOfGadget(62));
    Click(WidgetOfGadget(50));
    auto* bar = KindOf<QScrollBar>(5);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(GadgetState(5), 41);
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(GadgetState(5), 60);
    EXPECT_EQ(bar->orientation(), Qt::Vertical);
    EXPECT_EQ(GadgetState(50), 0);
    EXPECT_EQ(TakeEvents(kEventGadget),
              (Events{GadgetEvent(62, 0), GadgetEvent(50, 0), GadgetEvent(5, 0)}));
    // A handler may free the very gadget whose click it handles.
    BindGadgetHandler(62, [] { FreeGadget(62); });
    Click(WidgetOfGadget(62));
    EXPECT_FALSE(GadgetExists(62));
    TakeEvents();
    EXPECT_EQ(WidgetOfGadget(62), nullptr);
}

TEST_F(Gadgets, TextEntriesTellOfTypingAndOfTheFocus) {
    TextEntryGadget(41, 5, 5, 80, 20, "a1");
    TextEntryGadget(42, 5, 35, 80, 20, "", EntryRule::kDigits);
    ButtonGadget(62, 5, 65, 80, 20, "Connect");
    SetGadgetText(41, "10.0.0.1:3001");
    TakeEvents();
    for (const int gadget : {42, 62}) FocusGadget(gadget);
    for (const char* key : {"1", "x", "-", " ", "\xD9\xA3", "9"}) {
        Key(WidgetOfGadget(42), 0, QString::fromUtf8(key));
    }
    EXPECT_EQ(GadgetText(42), "19");
    EXPECT_EQ(TakeEvents(kEventGadget),
              (Events{GadgetEvent(42, kTypeFocus), GadgetEvent(42, kTypeLostFocus),
                      GadgetEvent(42, kTypeValueChanged)}));
    Click(WidgetOfGadget(42));
    Release(WidgetOfGadget(42), QPoint(5, 5), Qt::RightButton);
    EXPECT_EQ(TakeEvents(kEventRightButtonUp), (Events{{kEventRightButtonUp, 0, -1, 0}}));
}

TEST_F(Gadgets, AComboShowsATextThatIsNoItem) {
    ComboBoxGadget(kPortCombo, 5, 5, 90, 20);
    for (const char* port : {"ttyUSB0", "ttyUSB1", "TCPIP"}) AddGadgetItem(kPortCombo, port);
    EXPECT_EQ(GadgetText(kPortCombo), "");
    SetGadgetText(kPortCombo, "TTYUSB1");  // exact case
    EXPECT_EQ(GadgetText(kPortCombo), "TTYUSB1");
    SetGadgetText(kPortCombo, "TCPIP");
    EXPECT_EQ(GadgetState(kPortCombo), 2);
    SetGadgetText(kPortCombo, "not set");
    EXPECT_EQ(GadgetItemText(kPortCombo, 0), "ttyUSB0");
    EXPECT_EQ(GadgetItemCount(kPortCombo), 3);
    EXPECT_TRUE(TakeEvents(kEventGadget).empty());

    auto* combo = KindOf<QComboBox>(kPortCombo);
    // The text has all of the gadget but for its frame and a narrow arrow.
    QStyleOptionComboBox option;
    option.rect = QRect(0, 0, 60, 20);
    const auto part = [&](QStyle::SubControl control) {
        return combo->style()->subControlRect(QStyle::CC_ComboBox, &option, control, combo);
    };
    EXPECT_EQ(part(QStyle::SC_ComboBoxArrow), QRect(48, 0, 12, 20));
    EXPECT_EQ(part(QStyle::SC_ComboBoxEditField), QRect(2, 1, 46, 18));
    EXPECT_EQ(combo->style()->subElementRect(QStyle::SE_LineEditContents, &option),
              QRect(2, 1, 56, 18));
    // The text that is no item stands above them.
    for (const auto& [item, text] : {std::pair(0, "not set"), std::pair(2, "ttyUSB1")}) {
        combo->setCurrentIndex(item);
        Q_EMIT combo->activated(item);
        EXPECT_EQ(GadgetText(kPortCombo), text);
        EXPECT_EQ(TakeEvents(kEventGadget), (Events{GadgetEvent(kPortCombo, kTypeValueChanged)}));
    }
}

TEST_F(Gadgets, AListHasRowsAndAMultipleSelection) {
    ListGadget(kDeviceList, 5, 5, 200, 200);
    for (const char* row : {"..", "<DIR> games", "a.bas", "b.bas"}) AddGadgetItem(kDeviceList, row);
    EXPECT_EQ(GadgetState(kDeviceList), -1);
    for (const int row : {3, 2, 9}) SetGadgetItemSelected(kDeviceList, row, true);
    EXPECT_EQ(GadgetText(kDeviceList), "a.bas");  // the first one
    EXPECT_TRUE(GadgetItemSelected(kDeviceList, 3));
    EXPECT_EQ(GadgetItemText(kDeviceList, -1) + GadgetItemText(kDeviceList, 4), "");
    SetGadgetState(kDeviceList, 0);
    EXPECT_FALSE(GadgetItemSelected(kDeviceList, 3));

    auto* list = KindOf<QListWidget>(kDeviceList);
    const QPoint second = list->visualItemRect(list->item(1)).center();
    Click(list->viewport(), second);
    EXPECT_EQ(GadgetState(kDeviceList), 1);
    EXPECT_EQ(FocusedGadget(), -1);  // the window is not in front yet
    ClickAgain(list->viewport(), second);
    Click(list->viewport(), QPoint(50, 190));  // below the rows
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{GadgetEvent(163, 0), GadgetEvent(163, 2)}));
}

QString Rows() {
    QString rows;
    for (int row = 0; row < GadgetItemCount(kPcList); ++row) {
        rows += GadgetItemText(kPcList, row) + (GadgetItemIsFile(kPcList, row) ? "|" : "/|");
    }
    return rows;
}

TEST(ExplorerList, ListsFoldersFirstAndIsWalkedByDoubleClicks) {
    const ScratchFolder scratch;
    const QString top = scratch.folder.path() + "/";
    QDir().mkpath("Beta/inner");
    QDir().mkpath("alpha");
    ScratchFolder::Put("b.bas", "x");
    ScratchFolder::Put("A.BAS", "");
    ScratchFolder::Put(".hidden", "");
    OpenTestWindow();
    ExplorerListGadget(kPcList, 0, 0, 400, 300, top);
    TakeEvents();
    EXPECT_EQ(Rows(), "../|alpha/|Beta/|A.BAS|b.bas|");
    auto* list = KindOf<QTreeWidget>(kPcList);
    EXPECT_EQ(list->topLevelItem(4)->text(1), "1");
    EXPECT_EQ(list->topLevelItem(1)->text(1), "");
    EXPECT_EQ(
        QDateTime::fromString(list->topLevelItem(4)->text(2), "yyyy-MM-dd hh:mm").date().year(),
        QFileInfo("b.bas").lastModified().date().year());

    // A file stays where it is.
    const std::pair<int, QString> clicks[] = {{3, ""}, {2, "Beta/"}, {0, ""}};
    for (const auto& [row, folder] : clicks) {
        const Events told = {GadgetEvent(kPcList, kTypeValueChanged)};
        const QPoint at = list->visualItemRect(list->topLevelItem(row)).center();
        Click(list->viewport(), at);
        ClickAgain(list->viewport(), at);
        EXPECT_EQ(GadgetText(kPcList), top + folder);
        EXPECT_EQ(TakeEvents(kEventGadget), row == 3 ? Events() : told);
    }
    // Setting the folder lists it anew; one that is not there changes nothing.
    ScratchFolder::Put("c.bas", "");
    SetGadgetText(kPcList, GadgetText(kPcList));
    EXPECT_EQ(Rows(), "../|alpha/|Beta/|A.BAS|b.bas|c.bas|");
    for (const QString& none : {top + "nowhere", QString()}) SetGadgetText(kPcList, none);
    EXPECT_EQ(GadgetText(kPcList), top);
    EXPECT_EQ(TakeEvents(kEventGadget), Events());
}

// Who marks a change as its own counts on the echo, so it comes for an equal text too.
TEST_F(Gadgets, APathBoxTellsOfEveryChangeAndOfTheChoice) {
    PathBoxGadget(kPcPathEntry, 0, 0, 400, 30, "/tmp/");
    const Seen changed = GadgetEvent(kPcPathEntry, kTypePathChanged);
    for (int i = 0; i < 2; ++i) {
        SetGadgetText(kPcPathEntry, "/usr/");
        EXPECT_EQ(TakeEvents(kEventGadget), (Events{changed}));
    }
    Key(WidgetOfGadget(kPcPathEntry), Qt::Key_L, "l");
    EXPECT_EQ(GadgetText(kPcPathEntry), "/usr/l");
    Key(WidgetOfGadget(kPcPathEntry), Qt::Key_Return, "\r");
    EXPECT_EQ(TakeEvents(kEventGadget),
              (Events{changed, GadgetEvent(kPcPathEntry, kTypePathChosen)}));
}

TEST(FilePatterns, BecomeTheToolkitsForm) {
    EXPECT_EQ(ToolkitPatterns("Basic (*.bas)|*.bas|Text (*.txt)|*.txt|All files (*.*)|*.*"),
              (QStringList{"Basic (*.bas)", "Text (*.txt)", "All files (*)"}));
    EXPECT_EQ(ToolkitPatterns("Source|*.bas; *.inc"), QStringList{"Source (*.bas *.inc)"});
    EXPECT_EQ(ToolkitPatterns("alone"), QStringList());
}

}  // namespace

// The kinds of gadgets: text, state, items, places, and which changes are events.
#include "tests/ui/UiTest.h"

namespace {

using Gadgets = UiTest;

// Text, state and items, "*" behind those that are selected and "/" before those that are files.
std::string Told(int gadget) {
    QString told = QString("'%1' %2").arg(GadgetText(gadget)).arg(GadgetState(gadget));
    for (int item = 0; item < GadgetItemCount(gadget); ++item) {
        told += (GadgetItemIsFile(gadget, item) ? " /" : " ") + GadgetItemText(gadget, item) +
                (GadgetItemSelected(gadget, item) ? "*" : "");
    }
    return told.toStdString();
}

// Place and own settings.
std::string Place(int g) {
    return QString::asprintf("%d,%d %dx%d%s%s|", GadgetX(g), GadgetY(g), GadgetWidth(g),
                             GadgetHeight(g), GadgetHidden(g) ? " hidden" : "",
                             GadgetDisabled(g) ? " disabled" : "")
        .toStdString();
}

// Each kind with a text, a state and items, and what is left when the items are cleared.
TEST_F(Gadgets, EachKindTakesWhatItHas) {
    const std::pair<void (*)(), const char*> rows[] = {
        {[] { ButtonGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 1; 'b & <c>' 0"},
        {[] { CheckBoxGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 1; 'b & <c>' 0"},
        {[] { TextGadget(9, 1, 2, 90, 80, ""); }, "'b & <c>' 0; 'b & <c>' 0"},
        {[] { ComboBoxGadget(9, 1, 2, 90, 80); }, "'y' 1 x y; '' -1"},
        {[] { ListGadget(9, 1, 2, 90, 80); }, "'y' 1 x y*; '' -1"},
        {[] { ScrollBarGadget(9, 1, 2, 90, 80, 1, 9, 5, ScrollDirection::kVertical); },
         "'' 1; '' 1"},
        {[] { ContainerGadget(9, 1, 2, 90, 80), CloseGadgetList(); }, "'' 0; '' 0"},
    };
    for (const auto& [create, told] : rows) {
        create();
        SetGadgetText(9, "b & <c>");
        for (const char* item : {"x", "y"}) AddGadgetItem(9, item);
        SetGadgetState(9, 1);
        SetGadgetItemSelected(9, 1, true);
        const std::string before = Told(9);
        ClearGadgetItems(9);
        SetGadgetState(9, 0);
        EXPECT_EQ(before + "; " + Told(9), told);
    }
    EXPECT_EQ(GadgetItemCount(99) + GadgetItemSelected(99, 0) + GadgetItemIsFile(99, 0) +
                  GadgetColumnWidth(99, 0),
              0);
}

TEST_F(Gadgets, StandWhereTheyAreTold) {
    LoadNumberedFont(1, "Liberation Mono", 30, kFontBold);
    ContainerGadget(7, 10, 20, 200, 100);
    SetGadgetFont(-1, 1);
    ButtonGadget(8, 1, 2, 30, 40, "in it");
    CloseGadgetList();
    SetGadgetFont(-1, 2);  // there is none
    LoadNumberedFont(3, "Liberation Mono", 20, kFontPlain);
    TextGadget(9, 5, 6, 70, 120, "beside it");
    TextGadget(10, 5, 6, 70, 60, "one line");
    ResizeGadget(7, kKeep, 25, kKeep, 110);
    ResizeGadget(8, 3, kKeep, 35, kKeep);
    HideGadget(7, true);  // its own setting counts, whatever the container's
    DisableGadget(7, true);
    EXPECT_EQ(Place(7) + Place(8) + Place(99), "10,25 200x110 hidden disabled|3,2 35x40|0,0 0x0|");
    EXPECT_EQ(WidgetOfGadget(8)->parentWidget(), WidgetOfGadget(7));
    EXPECT_EQ(WidgetOfGadget(9)->parentWidget(), WidgetOfGadget(7)->parentWidget());
    SetGadgetFont(10, 3);
    for (const auto& [gadget, size] : {std::pair(8, 30), {9, 30}, {10, 20}}) {
        const QFont& font = WidgetOfGadget(gadget)->font();
        EXPECT_TRUE(font.pointSize() == size && font.bold() == (size == 30)) << gadget;
    }
    for (const int gadget : {9, 10}) {
        const auto* label = static_cast<QLabel*>(WidgetOfGadget(gadget));
        EXPECT_EQ(label->wordWrap(), gadget == 9);
        EXPECT_EQ(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
    }
    SetGadgetTooltip(8, "tip");
    EXPECT_EQ(GadgetName(8) + GadgetTooltip(8), "tiptip");
    FreeGadget(7);
    EXPECT_FALSE(GadgetExists(8));
}

TEST_F(Gadgets, ASplitterKeepsItsTwoAndGivesRoomToTheRightOne) {
    for (const int list : {8, 9}) ListGadget(list, 0, 0, 50, 50);
    SplitterGadget(10, 0, 0, 300, 100, 8, 99);  // nothing without both
    EXPECT_FALSE(GadgetExists(10));
    SplitterGadget(10, 0, 0, 300, 100, 8, 9);
    SetGadgetState(10, 120);
    ResizeGadget(10, 0, 0, 340, 100);
    EXPECT_EQ(GadgetState(10), 120);
    for (const int edge : {0, 999}) {
        SetGadgetState(10, edge);
        EXPECT_TRUE(GadgetState(10) > 0 && GadgetState(10) < 340);
    }
}

TEST_F(Gadgets, ClicksAndTicksAreEventsOfTheUserAlone) {
    ButtonGadget(62, 5, 5, 80, 20, "Connect");
    CheckBoxGadget(50, 5, 60, 100, 20, "Override");
    ScrollBarGadget(5, 100, 0, 20, 200, 0, 100, 40, ScrollDirection::kVertical);
    auto* bar = static_cast<QScrollBar*>(WidgetOfGadget(5));
    const QPointer<QWidget> button = WidgetOfGadget(62);
    const auto setAll = [] {
        for (const int gadget : {62, 50, 5}) SetGadgetState(gadget, 1);
    };
    // A handler may free the very gadget whose click it handles.
    const auto clickFreed = [] {
        BindGadgetHandler(
            62, [] { FreeGadget(62); }, kTypeLeftClick);
        Click(WidgetOfGadget(62));
    };
    BindGadgetHandler(50, [] { SetGadgetState(5, GadgetState(5) + 1); });
    Play({{setAll, "'Connect' 1 'Override' 1 '' 1 "},
          {[] { Click(WidgetOfGadget(62)); }, "'Connect' 0 'Override' 1 '' 1 3 0 62 0|"},
          {[] { Click(WidgetOfGadget(50)); }, "'Connect' 0 'Override' 0 '' 2 3 0 50 0|"},
          {[=] { bar->triggerAction(QAbstractSlider::SliderPageStepAdd); },
           "'Connect' 0 'Override' 0 '' 42 3 0 5 0|"},
          {clickFreed, "'' 0 'Override' 0 '' 42 3 0 62 0|"}},
         [] {
             std::string told;
             for (const int gadget : {62, 50, 5}) told += Told(gadget) + " ";
             return told + Heard(kEventGadget);
         });
    EXPECT_EQ(bar->orientation(), Qt::Vertical);
    EXPECT_FALSE(button);
}

TEST_F(Gadgets, TextEntriesTellOfTypingAndOfTheFocus) {
    TextEntryGadget(41, 5, 5, 80, 20, "a1");
    TextEntryGadget(42, 5, 35, 80, 20, "7", EntryRule::kDigits);
    ButtonGadget(62, 5, 65, 80, 20, "Connect");
    SetGadgetText(41, "10.0.0.1:3001");
    TakeEvents();
    for (const int gadget : {42, 62}) FocusGadget(gadget);
    for (const char* key : {"1", "x", "-", " ", "\xD9\xA3", "9"})
        Key(WidgetOfGadget(42), 0, QString::fromUtf8(key));
    EXPECT_EQ(GadgetText(41) + GadgetText(42), "10.0.0.1:3001719");
    EXPECT_EQ(Heard(kEventGadget), "3 0 42 256|3 0 42 512|3 0 42 768|");
}

// It stands above the items, which are told by exact case.
TEST_F(Gadgets, AComboShowsATextThatIsNoItem) {
    ComboBoxGadget(39, 5, 5, 90, 20);
    TextEntryGadget(41, 5, 35, 90, 20, "");
    for (const char* item : {"usb0", "usb1", "tcp"}) AddGadgetItem(39, item);
    auto* combo = static_cast<QComboBox*>(WidgetOfGadget(39));
    const auto choose = [=](int row) { combo->setCurrentIndex(row), Q_EMIT combo->activated(row); };
    Play(
        {{[] {}, "'' -1 usb0 usb1 tcp "},
         {[] { SetGadgetText(39, "tcp"); }, "'tcp' 2 usb0 usb1 tcp "},
         {[] { SetGadgetText(39, "none"), SetGadgetText(39, "USB1"); }, "'USB1' -1 usb0 usb1 tcp "},
         {[=] { choose(0); }, "'USB1' -1 usb0 usb1 tcp 3 0 39 768|"},
         {[=] { choose(2); }, "'usb1' 1 usb0 usb1 tcp 3 0 39 768|"}},
        [] { return Told(39) + " " + Heard(kEventGadget); });
    // The text has all of the gadget but for its frame and a narrow arrow.
    QStyleOptionComboBox option;
    option.rect = QRect(0, 0, 60, 20);
    const auto part = [&](QStyle::SubControl control) {
        return combo->style()->subControlRect(QStyle::CC_ComboBox, &option, control, combo);
    };
    EXPECT_EQ(part(QStyle::SC_ComboBoxArrow), QRect(48, 0, 12, 20));
    EXPECT_EQ(part(QStyle::SC_ComboBoxEditField), QRect(2, 1, 46, 18));
    EXPECT_EQ(WidgetOfGadget(41)->style()->subElementRect(QStyle::SE_LineEditContents, &option),
              QRect(2, 1, 56, 18));
}

TEST_F(Gadgets, AListHasRowsAndAMultipleSelection) {
    ListGadget(163, 5, 5, 200, 200);
    for (const char* row : {"..", "games", "a", "b"}) AddGadgetItem(163, row);
    auto* list = static_cast<QListWidget*>(WidgetOfGadget(163));
    const QPoint second = list->visualItemRect(list->item(1)).center();
    const auto select = [] {
        for (const int row : {3, 2, 9}) SetGadgetItemSelected(163, row, true);
    };
    Play({{[] {}, "'' -1 .. games a b "},
          {select, "'a' 2 .. games a* b* "},
          {[] { SetGadgetState(163, 0); }, "'..' 0 ..* games a b "},
          {[=] { Click(list->viewport(), second); }, "'games' 1 .. games* a b 3 0 163 0|"},
          {[=] { ClickAgain(list->viewport(), second); }, "'games' 1 .. games* a b 3 0 163 2|"},
          {[=] { Click(list->viewport(), QPoint(50, 190)); }, "'' -1 .. games a b "}},
         [] { return Told(163) + " " + Heard(kEventGadget); });
    Release(list->viewport(), QPoint(50, 190), Qt::RightButton);
    EXPECT_EQ(Heard(kEventRightButtonUp), "16 0 -1 0|");
}

TEST(ExplorerList, ListsFoldersFirstAndIsWalkedByDoubleClicks) {
    const ScratchFolder scratch;
    const QString top = scratch.folder.path() + "/";
    for (const char* folder : {"Beta/inner", "alpha"}) QDir().mkpath(folder);
    for (const char* file : {"b.bas", "A.BAS", ".hidden"}) ScratchFolder::Put(file, file);
    OpenTestWindow();
    ExplorerListGadget(162, 0, 0, 400, 300, top);
    auto* list = static_cast<QTreeWidget*>(WidgetOfGadget(162));
    SetGadgetColumnWidth(162, 0, 123);
    EXPECT_EQ(GadgetColumnWidth(162, 0), 123);
    QString shown = list->topLevelItem(1)->text(1);
    for (int column = 0; column < 3; ++column)
        shown += list->headerItem()->text(column) + " " + list->topLevelItem(4)->text(column) + "|";
    const QDateTime saved = QFileInfo("b.bas").lastModified();
    EXPECT_EQ(shown, "Name b.bas|Size 5|Date " + saved.toString("yyyy-MM-dd hh:mm") + "|");
    EXPECT_TRUE(!list->rootIsDecorated() && !list->header()->stretchLastSection());
    EXPECT_EQ(list->selectionMode(), QAbstractItemView::ExtendedSelection);
    const auto enter = [=](int row) {
        const QPoint at = list->visualItemRect(list->topLevelItem(row)).center();
        Click(list->viewport(), at);
        ClickAgain(list->viewport(), at);
    };
    // Setting the folder lists it anew; one that is not there changes nothing.
    const auto setAgain = [=] {
        ScratchFolder::Put("c.bas", "");
        for (const QString& folder : {top, QString(), top + "nowhere"}) SetGadgetText(162, folder);
    };
    Play({{[] {}, "'./' -1 .. alpha Beta /A.BAS /b.bas "},
          {[=] { enter(3); }, "'./' 3 .. alpha Beta /A.BAS* /b.bas "},
          {[=] { enter(2); }, "'./Beta/' -1 .. inner 3 0 162 768|"},
          {[=] { enter(0); }, "'./' -1 .. alpha Beta /A.BAS /b.bas 3 0 162 768|"},
          {setAgain, "'./' -1 .. alpha Beta /A.BAS /b.bas /c.bas "},
          {[] { SetGadgetState(162, 2); }, "'./' 2 .. alpha Beta* /A.BAS /b.bas /c.bas "}},
         [=] {
             const QString told = QString::fromStdString(Told(162) + " " + Heard(kEventGadget));
             return QString(told).replace(top, "./").toStdString();
         });
}

// Who marks a change as its own counts on the echo, so it comes for an equal text too.
TEST_F(Gadgets, APathBoxTellsOfEveryChangeAndOfTheChoice) {
    PathBoxGadget(180, 0, 0, 400, 30, "/tmp/");
    const auto set = [] { SetGadgetText(180, "/usr/"); };
    auto* completer = static_cast<QLineEdit*>(WidgetOfGadget(180))->completer();
    const auto key = [](int code, const char* text) { Key(WidgetOfGadget(180), code, text); };
    Play({{set, "'/usr/' 0 3 0 180 4|"},
          {set, "'/usr/' 0 3 0 180 4|"},
          {[=] { key(Qt::Key_L, "l"); }, "'/usr/l' 0 3 0 180 4|"},
          {[=] { key(Qt::Key_Return, "\r"); }, "'/usr/l' 0 3 0 180 5|"},
          {[=] { Q_EMIT completer->activated(QString("/usr/lib")); }, "'/usr/l' 0 3 0 180 5|"}},
         [] { return Told(180) + " " + Heard(kEventGadget); });
}

}  // namespace

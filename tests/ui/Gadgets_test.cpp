// The kinds of gadgets: state, text, items, and which changes are events.

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "tests/support/Gestures.h"
#include "ui/gadgets/CheckBoxGadget.h"
#include "ui/gadgets/ComboBoxGadget.h"
#include "ui/gadgets/ListGadget.h"
#include "ui/gadgets/SplitterGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/gadgets/WebGadget.h"

namespace {

using Gadgets = WithWindow;

TEST_F(Gadgets, ClicksAndTicksAreEventsOfTheUserAlone) {
    ButtonGadget(62, 5, 5, 80, 20, "Connect");
    CheckBoxGadget(50, 5, 60, 100, 20, "Override");
    SetGadgetState(50, 1);
    EXPECT_TRUE(TakeEvents(kEventGadget).empty());
    Click(WidgetOfGadget(62));
    Click(WidgetOfGadget(50));
    EXPECT_EQ(GadgetState(50), 0);
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{GadgetEvent(62, 0), GadgetEvent(50, 0)}));
}

// A handler may free the very gadget whose click it handles.
TEST_F(Gadgets, AHandlerMayFreeItsOwnGadget) {
    ButtonGadget(62, 5, 5, 80, 20, "Connect");
    BindGadgetHandler(62, [] { FreeGadget(62); });
    Click(WidgetOfGadget(62));
    EXPECT_FALSE(GadgetExists(62));
    TakeEvents();
    EXPECT_EQ(WidgetOfGadget(62), nullptr);
}

TEST_F(Gadgets, TextEntriesAndTheDigitRule) {
    TextEntryGadget(41, 5, 5, 80, 20, "a1");
    TextEntryGadget(42, 5, 35, 80, 20, "", EntryRule::kDigits);
    SetGadgetText(41, "10.0.0.1:3001");
    EXPECT_EQ(GadgetText(41), "10.0.0.1:3001");
    TakeEvents();
    for (const char* key : {"1", "x", "-", " ", "\xD9\xA3", "9"}) {
        Key(WidgetOfGadget(42), 0, QString::fromUtf8(key));
    }
    EXPECT_EQ(GadgetText(42), "19");
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{GadgetEvent(42, kTypeValueChanged)}));
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

    auto* combo = static_cast<QComboBox*>(WidgetOfGadget(kPortCombo));
    const auto pick = [&](int item) {
        combo->setCurrentIndex(item);
        Q_EMIT combo->activated(item);
    };
    pick(0);  // the text that is no item
    EXPECT_EQ(GadgetText(kPortCombo), "not set");
    EXPECT_EQ(TakeEvents(kEventGadget).size(), 1u);
    pick(2);
    EXPECT_EQ(GadgetText(kPortCombo), "ttyUSB1");
    EXPECT_EQ(TakeEvents(kEventGadget).size(), 1u);
}

TEST_F(Gadgets, AListHasRowsAndAMultipleSelection) {
    ListGadget(kDeviceList, 5, 5, 200, 200);
    for (const char* row : {"..", "<DIR> games", "a.bas", "b.bas"}) AddGadgetItem(kDeviceList, row);
    EXPECT_EQ(GadgetState(kDeviceList), -1);
    SetGadgetItemSelected(kDeviceList, 3, true);
    SetGadgetItemSelected(kDeviceList, 2, true);
    SetGadgetItemSelected(kDeviceList, 9, true);
    EXPECT_EQ(GadgetState(kDeviceList), 2);  // the first one
    EXPECT_TRUE(GadgetItemSelected(kDeviceList, 3));
    EXPECT_EQ(GadgetItemText(kDeviceList, -1) + GadgetItemText(kDeviceList, 4), "");
    SetGadgetState(kDeviceList, 0);
    EXPECT_FALSE(GadgetItemSelected(kDeviceList, 3));

    auto* list = static_cast<QListWidget*>(WidgetOfGadget(kDeviceList));
    const QPoint second = list->visualItemRect(list->item(1)).center();
    Click(list->viewport(), second);
    EXPECT_EQ(GadgetState(kDeviceList), 1);
    ClickAgain(list->viewport(), second);
    Click(list->viewport(), QPoint(50, 190));  // below the rows
    EXPECT_EQ(TakeEvents(kEventGadget), (Events{GadgetEvent(163, 0), GadgetEvent(163, 2)}));
}

TEST_F(Gadgets, TextsStandAsTheyAre) {
    TextGadget(208, 5, 5, 250, 20, "<b>101 x 50</b> & more");
    EXPECT_EQ(GadgetText(208), "<b>101 x 50</b> & more");
    const QSize plain = WidgetOfGadget(208)->sizeHint();
    SetGadgetText(208, "101 x 50 & more");
    EXPECT_LT(WidgetOfGadget(208)->sizeHint().width(), plain.width());  // markup was shown
}

}  // namespace

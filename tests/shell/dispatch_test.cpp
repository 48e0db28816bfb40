// The main window as start-up builds it, and the routes of its events.
#include <QStringList>

#include "terminal/screen/TerminalText.h"
#include "tests/shell/ShellRig.h"
#include "ui/MenuItem.h"
#include "ui/WaitWindowEvent.h"

namespace {

class DispatchTest : public ShellRig {
  protected:
    // The window as start-up leaves it, once it is active.
    static void BuildWindow() {
        ::BuildWindow();
        for (int i = 0; i < 1000 && FocusedGadget() != kTerminalCanvas; ++i) WaitForEvent(1);
    }
    void Receive(const std::string& bytes) {
        device.Write(bytes);
        PollLink();
    }
    static QString Row(int row) {
        return GetTerminalText(kTextVisible).split("\r\n").value(row - 1).trimmed();
    }
};

}  // namespace

TEST_F(DispatchTest, StartUpShowsTheStoredLinkAndFallsBackToTheFirstPreset) {
    LinkSettingsForTable().comPort = "TCPIP";
    LinkSettingsForTable().tcpAddress = "board.local";
    LinkSettingsForTable().deviceOnTcpip = 0;  // the port's name decides, not this
    ShellSettingsForTable().lastUsedPreset = 7;
    AddPreset({"first", "'target s\\maximite"});
    AddPreset({"second", "'target s\\cmm2"});
    BuildWindow();
    EXPECT_TRUE(linkStatus.deviceOnTcpip);
    EXPECT_FALSE(GadgetHidden(kAddressEntry));
    EXPECT_TRUE(GadgetHidden(kSpeedCombo));
    EXPECT_EQ(GadgetText(kAddressEntry), "board.local:3001");
    EXPECT_EQ(GadgetText(kPortCombo), "TCPIP");
    EXPECT_EQ(uploadOptions.familyName, "maximite");
    EXPECT_EQ(GadgetText(kFirstPresetButton + 1), "second");
    EXPECT_FALSE(GadgetDisabled(kFirstPresetButton + 1));
    EXPECT_TRUE(GadgetDisabled(kFirstPresetButton + 2));
    EXPECT_EQ(GadgetText(kFirstPresetButton + 2), "Device");
    EXPECT_EQ(GadgetTooltip(kConnectButton), "Connnect to device");
    EXPECT_TRUE(GadgetHidden(kDisconnectButton));
    EXPECT_FALSE(MenuItemTick(kItemWordWrap));
    EXPECT_TRUE(MenuItemTick(kItemLineEndingCrLf));
    EXPECT_EQ(Row(1), "Kewlink Console");
    EXPECT_TRUE(Row(2).startsWith("Build date: 20"));
    EXPECT_EQ(FocusedGadget(), kTerminalCanvas);
}

// A specification with a port word, which an empty field stands for, puts the name back as
// the list has it.
TEST_F(DispatchTest, PickingAPortStoresItInCapitalsUnlessTheSpecificationNamesThePort) {
    BuildWindow();
    EXPECT_EQ(GadgetItemCount(kPortCombo), 9);
    EXPECT_EQ(GadgetItemText(kPortCombo, 4), "ttyACM0");
    SetGadgetText(kPortCombo, "ttyUSB1");
    DispatchGadget(kPortCombo, kTypeValueChanged);
    EXPECT_EQ(linkSettings.comPort, "ttyUSB1");
    SetGadgetText(kSpecEntry, "'target s\\picomite");
    DispatchGadget(kPortCombo, kTypeValueChanged);
    EXPECT_EQ(linkSettings.comPort, "TTYUSB1");
    EXPECT_TRUE(GadgetHidden(kAddressEntry));
    SetGadgetText(kPortCombo, "TCPIP");
    DispatchGadget(kPortCombo, kTypeValueChanged);
    EXPECT_TRUE(linkStatus.deviceOnTcpip);
    EXPECT_TRUE(GadgetHidden(kSpeedCombo));
}

TEST_F(DispatchTest, TheActiveDevicesPresetIsInForceAndTakesAnOptionOnce) {
    ShellSettingsForTable().activeDevice = "mine|s\\maximite";
    AddPreset({"mine", "'target s\\cmm2"});
    BuildWindow();
    EXPECT_EQ(uploadOptions.familyName + GadgetText(kSpecEntry), "cmm2'target s\\cmm2");
    SetGadgetText(kSpecEntry, "'target s\\picomite");
    for (int i = 0; i < 2; ++i) {
        SetGadgetText(kOptionsCombo, "norun");
        DispatchGadget(kOptionsCombo, kTypeValueChanged);
    }
    EXPECT_EQ(GadgetText(kSpecEntry), "'target s\\picomite norun\\");
    EXPECT_TRUE(uploadOptions.noRun);
}

TEST_F(DispatchTest, ButtonsAndMenusSendTheirBytes) {
    BuildWindow();
    for (int gadget : {kEscButton, kCtrlCButton, kCtrlZButton, kRunButton})
        DispatchGadget(gadget, kTypeLeftClick);
    std::string keys = "\x1b\x03\x0fRUN\r\n";
    for (int i = 0; i < 12; ++i) DispatchGadget(kFirstFunctionKeyButton + i, kTypeLeftClick);
    for (int n : {11, 12, 13, 14, 15, 17, 18, 19, 20, 21, 23, 24})
        keys += "\x1b[" + std::to_string(n) + "~";
    EXPECT_EQ(device.Read(), keys);
    const std::pair<int, std::string> items[] = {
        {kItemSetTime, "Date$ = \"04/03/2026\"\r\nTime$ = \"05:06:0"},
        {kItemSetRtc, "RTC SETTIME 26,03,04,05,06,0"},
        {kItemListAll, "LIST ALL\r\n"},
        {kItemOptionList, "OPTION LIST\r\n"},
        {kItemFiles, "FILES\r\n"},
        {kItemNew, "NEW\r\n"},
        {kItemRun, "RUN\r\n"},
        {kShortcutLineEnding, "\r\n"},
        {kShortcutF10, "\x1b[21~"},
        {kShortcutShiftF10, "\x1b[34~"},
        {kShortcutCtrlZ, "\x1a"}};
    for (const auto& [item, bytes] : items) {
        DispatchMenu(item);
        EXPECT_EQ(device.Read().substr(0, bytes.size()), bytes) << item;
    }
    DispatchMenu(kItemLineEndingLf);
    EXPECT_TRUE(MenuItemTick(kItemLineEndingLf) && !MenuItemTick(kItemLineEndingCrLf));
    DispatchMenu(kItemRun);
    EXPECT_EQ(device.Read(), "RUN\n");
}

TEST_F(DispatchTest, ViewItemsHideRowsAndCloseTheGaps) {
    BuildWindow();
    const int top = mainWindowPlace.contentTop;
    EXPECT_EQ(top, 155);
    DispatchMenu(kFirstViewItem + 1);
    DispatchMenu(kFirstViewItem + 4);
    EXPECT_EQ(mainWindowPlace.linesToShow, "101101");
    EXPECT_EQ(mainWindowPlace.contentTop, top - 50);
    EXPECT_FALSE(MenuItemTick(kFirstViewItem + 4));
}

TEST_F(DispatchTest, ThePollRoutesByModeAndStandsAside) {
    BuildWindow();
    ClearTerminal(kTerminalCanvas);
    Receive("hello\r\n");
    EXPECT_EQ(Row(1), "hello");
    SetQuietTerminal(true);
    Receive("thrown away\r\n");
    SetQuietTerminal(false);
    SetPollingSuspended(true);
    Receive("waits\r\n");
    EXPECT_EQ(Row(2), "");
    SetPollingSuspended(false);
    SetQueueBusy(true);
    PollLink();
    EXPECT_EQ(Row(2), "");
    SetQueueBusy(false);
    PollLink();
    EXPECT_EQ(Row(2), "waits");
    DispatchMenu(kFirstModeItem + kModeHelper);
    EXPECT_EQ(GadgetText(kModeText), "External VT helper");
    EXPECT_TRUE(MenuItemTick(kFirstModeItem + 1) && !MenuItemTick(kFirstModeItem));
    Receive("vanishes");
    DispatchMenu(kFirstModeItem);
    EXPECT_EQ(Row(3), "");
}

TEST_F(DispatchTest, OneTickReadsAtMostOneBuffer) {
    LinkSettingsForTable().commsBufferSize = kSmallestCommsBuffer;
    FreeLinkBuffers();
    AllocateLinkBuffers();
    BuildWindow();
    ClearTerminal(kTerminalCanvas);
    Receive(std::string(kSmallestCommsBuffer, '\n') + "rest");
    EXPECT_FALSE(GetTerminalText(kTextVisible).contains("rest"));
    PollLink();
    EXPECT_TRUE(GetTerminalText(kTextVisible).contains("rest"));
}

TEST_F(DispatchTest, TheReplyGoesOutAfterTheBlockAndOnlyTheLast) {
    BuildWindow();
    Receive("\x1b[2;3H\x1b[6n\x1b[7;5H\x1b[6n");
    DispatchEvent(kEventTerminalReply, kMainWindow);
    DispatchEvent(kEventTerminalReply, kMainWindow);
    EXPECT_EQ(device.Read(), "\x1b[7;5R");
}

TEST_F(DispatchTest, SwitchingTheSchemeClearsAndCloseEndsTheLoop) {
    BuildWindow();
    DispatchMenu(kItemDarkBackground);
    EXPECT_FALSE(terminalScreen.darkBackground);
    EXPECT_EQ(terminalScreen.curBg, 0xFFFFFFu);
    EXPECT_EQ(Row(1), "");
    EXPECT_FALSE(MenuItemTick(kItemDarkBackground));
    DispatchEvent(kEventCloseWindow, kHelpWindow);
    EXPECT_FALSE(exitRequested);
    DispatchEvent(kEventCloseWindow, kMainWindow);
    EXPECT_TRUE(exitRequested);
    EXPECT_TRUE(WindowIsOpen(kMainWindow));
}

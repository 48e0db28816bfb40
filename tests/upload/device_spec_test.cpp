#include <stdlib.h>

#include "tests/upload/upload_bench.h"
#include "ui/windows/MenuItem.h"
#include "upload/DeviceSpec.h"
#include "upload/SpecRebuild.h"

namespace {

class DeviceSpec : public UploadBench {
  protected:
    static QString Serial() { return linkSettings.comPort + ':' + linkSettings.serialSpeed; }
    static QString Tcp() { return linkSettings.tcpAddress + ':' + linkSettings.tcpPort; }
};

TEST_F(DeviceSpec, LineEndingAndItsTick) {
    CreatePopupMenu(kPopupMenu);
    for (int i = kItemLineEndingCrLf; i <= kItemLineEndingLf; ++i) MenuItem(i, "x");
    for (const auto& [word, name] : {std::pair<QString, QString>{"le\\CrLf", "CRLF"},
                                     {"LE\\cr", "CR"},
                                     {"le\\lf", "LF"},
                                     {"le", "LF"},
                                     {"le\\x", "LF"}}) {
        ApplyDeviceSpec(word);
        QString ticked;
        for (const LineEndingRow& row : kLineEndings)
            ticked += MenuItemTick(row.item) ? row.name : "";
        EXPECT_EQ(lineEnding.name + ticked, name.repeated(2)) << word.toStdString();
    }
}

TEST_F(DeviceSpec, PortAndAddressChooseTheLink) {
    AdoptSerialLink(0);
    const int far = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(far >= 0 && unlockpt(far) == 0);
    const QString endpoint = QString(ptsname(far)).mid(5) + ":38400";  // behind "/dev/"
    ApplyDeviceSpec("s\\pico port\\" + endpoint);
    ASSERT_NE(ConnectDevice(), 0);
    EXPECT_EQ(Serial() + linkStatus.linkLabel + uploadSettings.picoPort + ":38400",
              endpoint.repeated(3));
    ApplyDeviceSpec("ip\\" + endpoint);  // the text is the same, so the link stays
    EXPECT_TRUE(linkStatus.linkConnected && linkStatus.deviceOnTcpip &&
                !WindowIsOpen(kNoticeWindow));
    EXPECT_EQ(Tcp() + GadgetText(kAddressEntry) + uploadSettings.picoPort, endpoint.repeated(2));
    ApplyDeviceSpec("s\\cmm2 port\\COM1");
    EXPECT_FALSE(linkStatus.linkConnected || SerialLinkIsOpen() || linkStatus.deviceOnTcpip);
    EXPECT_EQ(GadgetText(kNoticeText), "Port Changed!\ndisconnecting first.");
    EXPECT_EQ(Serial() + uploadSettings.picoPort + GadgetText(kPortCombo), "COM1:COM1");
    close(far);
}

TEST_F(DeviceSpec, RebuiltFromTheGadgets) {
    const auto build = [](const char* field, const char* port) {
        SetGadgetText(kSpecEntry, field);
        SetGadgetText(kPortCombo, port);
        SetGadgetText(kSpeedCombo, "57600");
        SetGadgetText(kFamilyCombo, "maximite");
        SetGadgetText(kAddressEntry, "10.0.0.7:4000");
        BuildDeviceSpec();
        EXPECT_EQ(GadgetText(kSpecEntry), field);
        return Serial() + ' ' + uploadOptions.familyName + (uploadOptions.noRun ? " norun" : "") +
               (uploadOptions.noNew ? " nonew" : "");
    };
    EXPECT_EQ(build("S\\pico nonew", "x"), "not set:38400 picomite nonew");  // as typed
    EXPECT_EQ(build("ip         nonew", ""), ":57600 picomite nonew");
    EXPECT_EQ(build("", "ttyUSB1"), "ttyUSB1:57600 maximite");
    EXPECT_EQ(build("'target port\\C:1 norun syn\\pico", "x"), "x:57600 maximite norun");
    EXPECT_EQ(build("port\\C:1", "TCPIP"), "x:57600 maximite");
    EXPECT_EQ(Tcp(), "10.0.0.7:4000");
}

}  // namespace

#include <stdlib.h>

#include "tests/upload/upload_bench.h"
#include "ui/windows/MenuItem.h"
#include "upload/DeviceSpec.h"
#include "upload/SpecRebuild.h"

namespace {

using DeviceSpec = UploadBench;

QString Serial() {
    return linkSettings.comPort + ':' + linkSettings.serialSpeed;
}

QString Tcp() {
    return linkSettings.tcpAddress + ':' + linkSettings.tcpPort;
}

TEST_F(DeviceSpec, LineEndingAndItsTick) {
    CreatePopupMenu(kPopupMenu);
    for (const LineEndingRow& row : kLineEndings) MenuItem(row.item, row.name);
    QString chosen;
    for (const char* word : {"le\\CrLf", "LE\\cr", "le\\lf", "le\\cr", "le", "le\\crlf", "le\\x"}) {
        ApplyDeviceSpec(word);
        chosen += ' ' + lineEnding.name;
        for (const LineEndingRow& row : kLineEndings)
            chosen += MenuItemTick(row.item) ? row.name : "";
    }
    EXPECT_EQ(chosen, " CRLFCRLF CRCR LFLF CRCR LFLF CRLFCRLF LFLF");
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
    const auto build = [](const QString& field, const char* port) {
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
    EXPECT_EQ(build("ip" + QString(64, ' ') + "nonew", ""), ":57600 picomite nonew");
    EXPECT_EQ(build("ip" + QString(65, ' ') + "nonew", ""), ":57600 picomite");
    EXPECT_EQ(build("", "ttyUSB1"), "ttyUSB1:57600 maximite");
    EXPECT_EQ(build("'target port\\C:1 norun syn\\pico", "x"), "x:57600 maximite norun");
    EXPECT_EQ(build("port\\C:1", "TCPIP"), "x:57600 maximite");
    EXPECT_EQ(Tcp(), "10.0.0.7:4000");
}

}  // namespace

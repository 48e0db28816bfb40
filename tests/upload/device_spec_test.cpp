// What the words of a specification set, and a specification made from the gadgets.
#include "tests/upload/upload_bench.h"
#include "upload/DeviceSpec.h"
#include "upload/SpecRebuild.h"

namespace {

using DeviceSpec = UploadBench;

// The endpoints, the road that is taken, the link that is up, and the port kept for a picomite.
QString State() {
    return linkSettings.comPort + ':' + linkSettings.serialSpeed + ' ' + linkSettings.tcpAddress +
           ':' + linkSettings.tcpPort + (linkStatus.deviceOnTcpip ? " tcp " : " serial ") +
           linkStatus.linkLabel + ' ' + uploadSettings.picoPort;
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
    EXPECT_EQ(State() + ":38400", endpoint + " localhost:3001 serial " + endpoint + ' ' + endpoint);
    ApplyDeviceSpec("ip\\" + endpoint);  // the text is the same, so the link stays
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
    EXPECT_EQ(State(), endpoint + ' ' + endpoint + " tcp " + endpoint + ' ');
    ApplyDeviceSpec("s\\cmm2 port\\COM1:57");
    EXPECT_EQ(State(), "COM1:57 " + endpoint + " serial  ");
    EXPECT_EQ(GadgetText(kNoticeText), "Port Changed!\ndisconnecting first.");
    EXPECT_EQ(GadgetText(kAddressEntry) + GadgetText(kPortCombo) + GadgetText(kSpeedCombo),
              endpoint + "COM157");
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
        return GadgetText(kSpecEntry).left(8) + '|' + State().section(' ', 0, 2) + ' ' +
               uploadOptions.familyName + (uploadOptions.noRun ? " norun" : "") +
               (uploadOptions.noNew ? " nonew" : "");
    };
    const QString tcp = " localhost:3001 serial ";
    EXPECT_EQ(build("", "ttyUSB1"), "|ttyUSB1:57600" + tcp + "maximite");
    EXPECT_EQ(build("S\\pico nonew", "x"), "S\\pico n|ttyUSB1:57600" + tcp + "picomite nonew");
    const QString blanks(64, ' ');
    EXPECT_EQ(build("ip" + blanks + "nonew", ""), "ip      |:57600" + tcp + "picomite nonew");
    EXPECT_EQ(build("ip " + blanks + "nonew", ""), "ip      |:57600" + tcp + "picomite");
    EXPECT_EQ(build("'target port\\C:1 norun syn\\pico", "x"),
              "'target |x:57600" + tcp + "maximite norun");
    EXPECT_EQ(build("port\\C:1", "TCPIP"), "port\\C:1|x:57600 10.0.0.7:4000 tcp maximite");
}

}  // namespace

#include "upload/DeviceSpec.h"

#include <stdlib.h>

#include "tests/upload/upload_bench.h"
#include "ui/windows/MenuItem.h"
#include "upload/OnloadLine.h"
#include "upload/SpecRebuild.h"

namespace {

class DeviceSpec : public UploadBench {
  protected:
    // family|start|end|flags: r noRun, n noNew, t setTime, c setRtc, d disconnectAfter. "*"
    // stands for AUTOSAVE; ends are Z and C for Ctrl-Z and Ctrl-C, F1, F2, - for none.
    static QString Options() {
        const UploadOptions& o = uploadOptions;
        const QStringList codes = {"\x1a", "\x03", "\x1b[11~", "\x1b[12~", ""};
        const char* const ends[] = {"|?|", "|Z|", "|C|", "|F1|", "|F2|", "|-|"};
        return o.familyName + '|' + QString(o.autosaveStart).replace("AUTOSAVE", "*") +
               ends[codes.indexOf(o.autosaveEnd) + 1] + (o.noRun ? "r" : "") +
               (o.noNew ? "n" : "") + (o.setTime ? "t" : "") + (o.setRtc ? "c" : "") +
               (o.disconnectAfter ? "d" : "");
    }
    static QString Serial() { return linkSettings.comPort + ':' + linkSettings.serialSpeed; }
    static QString Tcp() { return linkSettings.tcpAddress + ':' + linkSettings.tcpPort; }
};

// clang-format off
const std::pair<const char*, const char*> specRows[] = {
    {"", "|*|Z|"}, {"s\\", "|*|Z|"}, {"s", "|*|Z|"}, {"'target s\\micromite", "micromite|*|Z|"},
    {"' target syn\\vgamite", "vgamite|*|Z|"}, {"S\\Maximite", "maximite|AUTO|C|"},
    {"s\\PI", "pi-cromite|*|C|"}, {"s\\pi-cromite", "pi-cromite|*|C|"}, {"s\\cmd", "command||-|rn"},
    {"s\\pico", "picomite|*|Z|"}, {"s\\command s\\picomite", "picomite|*|Z|rn"},
    {"s\\micromite+", "micromite+|*|Z|"}, {"s\\cmm2 s\\x", "x|* \"p.bas\"|F2|r"},
    {"' target s\\cmm2 norun", "cmm2|* \"p.bas\"|F1|r"}, {"s\\cmm2 FILE\\", "cmm2|* \"\"|F2|r"},
    {"' target norun s\\cmm2", "cmm2|* \"p.bas\"|F2|r"}, {"s\\pico file\\A", "picomite|*|Z|"},
    {"s\\cmm2 file\\no", "cmm2|* \"p.bas\"|F2|r"}, {"s\\cmm2 file\\A.b\\x", "cmm2|* \"A.b\"|F2|r"},
    {"file\\A.bas s\\cmm2", "cmm2|* \"p.bas\"|F2|r"}, {"A 'target s\\pico", "picomite|*|Z|"},
    {"SetTime setRTC NORUN nonew\\ discon\\x dev\\y zz", "|*|Z|rntcd"}, {"norun\nnonew", "|*|Z|r"},
    {"s\\pico 'norun", "picomite|*|Z|"}, {"'target\ts\\pico", "|*|Z|"},
    {"norun         nonew", "|*|Z|r"}, {"norun        nonew", "|*|Z|rn"},
    {"'onload", "micromite|*|Z|d"}, {"'onload maximite", "maximite|AUTO|C|d"},
    {"'onload settime setrtc norun nonew", "micromite|*|Z|rntcd"},
    {"' onload vgamite", "micromite|*|Z|d"}, {"'onload PI-cromite", "pi-cromite|*|C|d"},
    {"'onload picomite command", "picomite|*|Z|rnd"},
    {"'onload cmm2 maximite", "cmm2|* \"temp.bas\"|F2|rd"},
    {"'onload norun cmm2", "cmm2|* \"temp.bas\"|F1|rd"},
    {"'onload cmm2 file/*", "cmm2|* \"p.bas\"|F2|rd"},
    {"'onload file\\b.bas cmm2", "cmm2|* \"b.bas\"|F2|rd"},
    {"'onload norunning\tsettime", "micromite|*|Z|rd"},
};
// clang-format on

TEST_F(DeviceSpec, WordsSetTheOptions) {
    SetCurrentFile("/home/me/p.bas");
    for (const auto& [spec, options] : specRows) {
        ApplyDeviceSpec("s\\");
        const bool older = QString(spec).contains("onload");
        EXPECT_EQ(older ? ApplyOnloadLine(spec) + '\n' : ApplyDeviceSpec(spec),
                  spec + QString("\n"));
        EXPECT_EQ(Options(), options) << spec;
    }
    SetCurrentFile("");
    ApplyDeviceSpec("s\\cmm2");
    EXPECT_EQ(Options(), "cmm2|* \"temp.bas\"|F2|r");
    ApplyDeviceSpec("norun");  // the family stays
    EXPECT_EQ(Options(), "cmm2|*|F1|r");
    ApplyDeviceSpec("s\\Micromite+");
    EXPECT_EQ(GadgetText(kFamilyCombo) + Options(), "micromite+micromite+|*|Z|");
}

TEST_F(DeviceSpec, LineEndingTicksAndCrunchInOrder) {
    CreatePopupMenu(kPopupMenu);
    for (int i = kItemLineEndingCrLf; i <= kItemLineEndingLf; ++i) MenuItem(i, "x");
    const QStringList names = {"CRLF", "CR", "LF"};
    for (const QString word : {"le\\CrLf", "LE\\cr", "le\\lf", "le", "le\\x"}) {
        ApplyDeviceSpec(word);
        const int known = names.indexOf(word.mid(3).toUpper());
        EXPECT_EQ(lineEnding.name, names[known < 0 ? 2 : known]) << word.toStdString();
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(MenuItemTick(kItemLineEndingCrLf + i), names[i] == lineEnding.name);
    }
    EXPECT_EQ(ApplyDeviceSpec("'target CRUNCH\n A  'x\n\nB"), "A\nB\n");
    EXPECT_EQ(ApplyDeviceSpec("crunch le\\cr\nB"), "crunch le\\cr\nB\n");
    EXPECT_EQ(ApplyDeviceSpec("B\n'target crunch\n"), "B\n'target crunch\n\n");
    EXPECT_EQ(ApplyOnloadLine("'onload COM3:38 crunch\nA 'b\n"), "'onload COM3:38 crunch\rA\r");
    EXPECT_EQ(Serial(), "com3:38");
    ApplyOnloadLine("'onload command com4:9600");  // the family word begins as the port word does
    EXPECT_EQ(Serial(), "command:");
}

TEST_F(DeviceSpec, PortAndAddressChooseTheLink) {
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
    EXPECT_EQ(Serial() + uploadSettings.picoPort, "COM1:");
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
        return Serial() + ' ' + Options();
    };
    EXPECT_EQ(build("S\\pico nonew", "x"), "not set:38400 picomite|*|Z|n");  // as typed
    EXPECT_EQ(build("ip         nonew", ""), ":57600 picomite|*|Z|n");
    EXPECT_EQ(build("", "ttyUSB1"), "ttyUSB1:57600 maximite|AUTO|C|");
    EXPECT_EQ(build("'target port\\C:1 norun syn\\pico", "x"), "x:57600 maximite|AUTO|C|r");
    EXPECT_EQ(build("port\\C:1", "TCPIP"), "x:57600 maximite|*|Z|");
    EXPECT_EQ(Tcp(), "10.0.0.7:4000");
}

}  // namespace

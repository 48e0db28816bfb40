// What kwports says of a port: the line to paste, and what to do about one that is refused.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include "ports/PortAccess.h"
#include "ports/PortReport.h"
#include "ports/PortSpecification.h"

namespace {

TEST(Ports, SpecificationsToPaste) {
    const auto specification = [](const char* path, quint16 vendor, quint16 product) {
        SerialPort port{path};
        port.vendorId = vendor;
        port.productId = product;
        return PortSpecification(port, path);
    };
    EXPECT_EQ(specification("/dev/ttyACM0", 0x2e8a, 0x0009),
              "'target s\\picomite port\\ttyACM0:115200 le\\cr");
    EXPECT_EQ(specification("/dev/ttyACM1", 0x04d8, 0x000a),
              "'target s\\maximite port\\ttyACM1:115200 le\\cr");
    EXPECT_EQ(specification("/dev/ttyUSB0", 0x1a86, 0x7523),
              "'target s\\cmm2 port\\ttyUSB0:115200 le\\cr");
    EXPECT_EQ(specification("/dev/pts/5", 0, 0), "'target s\\picomite port\\pts/5:115200 le\\cr");
    for (const char* path : {"/dev/a b", "/dev/a:b", "/dev/a\\b", "/dev/a'b", "/tmp/tty", "/dev/"})
        EXPECT_EQ(specification(path, 0, 0), "") << path;
}

TEST(Ports, AReportShowsBothNamesAndWhatIsUnknown) {
    SerialPort port{"/dev/ttyUSB0", "/dev/KW-A1B2"};
    port.maker = "FTDI";
    port.product = "FTDI Serial";
    port.serialNumber = "A1B2";
    port.vendorId = 0x0403;
    port.productId = 0x6001;
    EXPECT_EQ(PortReport(port, "you may open it", {"one (1)", "two (2)"}),
              "/dev/ttyUSB0\n"
              "  device         FTDI Serial (0403:6001), serial number A1B2\n"
              "  access         you may open it\n"
              "  held by        one (1), two (2)\n"
              "  specification  'target s\\picomite port\\ttyUSB0:115200 le\\cr\n"
              "  in any socket  'target s\\picomite port\\KW-A1B2:115200 le\\cr\n"
              "                 put in the family and the speed of your board\n");
}

TEST(Ports, ARefusedPortTellsWhatHelps) {
    PortRights rights;
    rights.mode = 0660;
    rights.group = "dialout";
    rights.user = "me";
    EXPECT_EQ(AccessSentence(rights),
              "you may not open it: sudo adduser me dialout, then log out and in");
    rights.memberByName = true;
    EXPECT_TRUE(AccessSentence(rights).startsWith("you joined the group dialout"));
    rights.mode = 0640;  // the group would not help
    EXPECT_EQ(AccessSentence(rights), "only its owner, or root, may open it");
    rights.mayOpen = true;
    EXPECT_EQ(AccessSentence(rights), "you may open it");
}

TEST(Ports, HoldersAreFoundByThePortsPath) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(terminal) | unlockpt(terminal), 0);
    const QString path = ptsname(terminal);
    EXPECT_TRUE(RightsOn(path).mayOpen);
    EXPECT_FALSE(RightsOn(path + "0000").mayOpen);
    EXPECT_EQ(HoldersOf(path).size(), 0);
    const int line = open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
    EXPECT_EQ(HoldersOf(path), QStringList(QString("ports_tests (%1)").arg(getpid())));
    close(line);
    close(terminal);
}

}  // namespace

// What kwports says of a port: the line to paste, and what to do about one that is refused.
#include <gtest/gtest.h>

#include <QTemporaryFile>

#include "ports/PortAccess.h"
#include "ports/PortSpecification.h"

namespace {

TEST(Ports, SpecificationsToPaste) {
    const auto specification = [](const char* path, quint16 vendor, quint16 product) {
        return PortSpecification({path, "", "", "", "", vendor, product}, path);
    };
    EXPECT_EQ(specification("/dev/ttyACM1", 0x04d8, 0x000a) + "\n" +
                  specification("/dev/ttyUSB0", 0x1a86, 0x7523),
              "'target s\\maximite port\\ttyACM1:115200 le\\cr\n"
              "'target s\\cmm2 port\\ttyUSB0:115200 le\\cr");
    for (const char* path : {"/dev/a b", "/dev/a:b", "/dev/a\\b", "/dev/a'b", "/tmp/tty", "/dev/"})
        EXPECT_EQ(specification(path, 0, 0), "") << path;
}

TEST(Ports, ARefusedPortTellsWhatHelps) {
    EXPECT_EQ(AccessSentence({false, 0660, "dialout", false, "me"}),
              "you may not open it: sudo adduser me dialout, then log out and in");
    EXPECT_TRUE(AccessSentence({false, 0660, "dialout", true, "me"})
                    .startsWith("you joined the group dialout"));
    EXPECT_EQ(AccessSentence({false, 0640, "dialout", true, "me"}),  // it would not help
              "only its owner, or root, may open it");
    QTemporaryFile own;  // in this user's first group
    ASSERT_TRUE(own.open());
    EXPECT_TRUE(RightsOn(own.fileName()).memberByName);
}

}  // namespace

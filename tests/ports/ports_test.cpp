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
    EXPECT_EQ(specification("/dev/ttyACM1", 0x04d8, 0x000a),
              "'target s\\maximite port\\ttyACM1:115200 le\\cr");
    EXPECT_EQ(specification("/dev/ttyUSB0", 0x1a86, 0x7523),
              "'target s\\cmm2 port\\ttyUSB0:115200 le\\cr");
    for (const char* path : {"/dev/a b", "/dev/a:b", "/dev/a\\b", "/dev/a'b", "/tmp/tty", "/dev/"})
        EXPECT_EQ(specification(path, 0, 0), "") << path;
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
    QTemporaryFile own;  // in this user's first group
    ASSERT_TRUE(own.open());
    EXPECT_TRUE(RightsOn(own.fileName()).memberByName);
}

}  // namespace

// main() of every test program: the interface layer stands before the first test.
#include <gtest/gtest.h>

#include <cstdlib>

#include "ui/InterfaceLayer.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The build lists the tests of a program by running it, where no display is.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    StartInterfaceLayer(argc, argv);
    const int failures = RUN_ALL_TESTS();
    EndInterfaceLayer();
    return failures;
}

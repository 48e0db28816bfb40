// main() of every test program: the interface layer stands before the first test.
#include <gtest/gtest.h>

#include "ui/InterfaceLayer.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    StartInterfaceLayer(argc, argv);
    const int failures = RUN_ALL_TESTS();
    EndInterfaceLayer();
    return failures;
}

// main() of every test program: the interface layer stands before the first test.
#include <gtest/gtest.h>

#include <cstdlib>

#include "ui/InterfaceLayer.h"

// Asked by AddressSanitizer, also when a test program is started by hand. With its frames
// on the kernel's stack it takes what the unwinding of a killed thread leaves for a fault.
extern "C" const char* __asan_default_options() {
    return "detect_stack_use_after_return=1";
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The build lists the tests of a program by running it, where no display is.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    // That platform's screen claims 100 dots an inch, which would be a scale of 1.04.
    setenv("QT_ENABLE_HIGHDPI_SCALING", "0", 0);
    setenv("QT_FONT_DPI", "96", 0);
    StartInterfaceLayer(argv);
    const int failures = RUN_ALL_TESTS();
    EndInterfaceLayer();
    return failures;
}

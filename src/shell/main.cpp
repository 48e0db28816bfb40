// The entry point.
#include "shell/StartUp.h"

int main(int argc, char** argv) {
    return RunProgram(argc, argv);
}

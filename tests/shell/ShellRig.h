// The main window as start-up builds it, on the virtual clock, with the device's side of
// the line.
#pragma once

#include <gtest/gtest.h>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "shell/Dispatch.h"
#include "shell/Macros.h"
#include "shell/Poll.h"
#include "shell/Presets.h"
#include "shell/ShellSettings.h"
#include "shell/StartUp.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"
#include "ui/Dialogs.h"
#include "ui/Gadgets.h"
#include "ui/Windows.h"
#include "upload/UploadOptions.h"

class ShellRig : public testing::Test {
  protected:
    ShellRig() { AllocateLinkBuffers(); }
    ~ShellRig() override { FreeLinkBuffers(); }

    VirtualClock clock;
    FarEnd device;
};

// The main window as start-up builds it, on the virtual clock, with the device's side of
// the line, and what an event changes.
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
#include "tests/support/FarEnd.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/VirtualClock.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"
#include "upload/UploadOptions.h"

class ShellRig : public testing::Test {
  protected:
    ShellRig() {
        AllocateLinkBuffers();
        answers.text = [](const QString& title, const QString& prompt, const QString& preset) {
            asked = title + ',' + prompt + ',' + preset;
            return answer;
        };
        answers.message = [](const QString& title, const QString&) {
            asked = title;
            return true;
        };
        answers.font = [](const QString&, int) { return FontChoice{true, "Liberation Mono", 14}; };
        answers.file = [](const QString&, const QString&) { return FileChoice{"saved.txt", 1}; };
        AnswerDialogs(&answers);
        asked.clear();
        answer.clear();
    }

    // The window once it is active, with no timer at work.
    static void OpenWindow() {
        BuildWindow();
        for (int i = 0; i < 1000 && FocusedGadget() != kTerminalCanvas; ++i) WaitForEvent(1);
        for (int timer : {kPollTimer, kBlinkTimer, kDeferredLoadTimer})
            RemoveWindowTimer(kMainWindow, timer);
        Drain();
    }
    // What the loop does until nothing is left to do.
    static void Drain() {
        for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;)
            DispatchEvent(event, EventWindow());
    }
    // Dispatches an event while the nickname's entry has the focus. The bytes sent, the
    // gadget with the focus afterwards, and all that changed.
    std::string After(int32_t event, int64_t object, int64_t type = 0, int window = kMainWindow);

    ScratchFolder scratch;
    VirtualClock clock;
    FarEnd device;
    DialogAnswers answers;
    static inline QString asked, answer;  // of the last dialog
};

// The main window as start-up builds it, on the virtual clock, with the device's side of
// the line.
#pragma once

#include <QtTest>
#include <QtWidgets>

#include "shell/Poll.h"
#include "shell/Settings.h"
#include "shell/StartUp.h"
#include "terminal/screen/TerminalText.h"
#include "tests/support/Chosen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/windows/FileDialogs.h"

inline const bool startState = KeepStartState(PutBackShell);

struct ShellRig : testing::Test {
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
        asked = answer = "";
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
    static void Raise(int32_t event, int64_t object, int64_t type = 0, int window = kMainWindow) {
        PostInterfaceEvent(event, window, object, type);
        Drain();
    }
    static QTimer* Timer(int number, int window = kMainWindow) {
        for (QTimer* timer : WidgetOfWindow(window)->findChildren<QTimer*>()) {
            if (timer->property("PB_TimerID") == number) return timer;
        }
        return nullptr;
    }
    static QString Visible() { return GetTerminalText(TextPart::kVisible); }

    ScratchFolder scratch;
    VirtualClock clock;
    FarEnd device;
    DialogAnswers answers;
    static inline QString asked, answer;  // of the last dialog
};

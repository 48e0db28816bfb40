// What the tests of the interface need, beside what a user does (tests/support/Gestures.h).
#pragma once

#include <QtTest>
#include <csignal>
#include <thread>

#include "tests/support/Chosen.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "ui/FlushPainting.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/events/AddKeyboardShortcut.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/gadgets/CheckBoxGadget.h"
#include "ui/gadgets/ComboBoxGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/ExplorerListGadget.h"
#include "ui/gadgets/ListGadget.h"
#include "ui/gadgets/PathBoxGadget.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/SplitterGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/DragDrop.h"
#include "ui/windows/FileDialogs.h"
#include "ui/windows/Notice.h"

using UiTest = WithWindow;

// The events that wait, those of one number if given: number, window, object and type of each.
inline std::string Heard(int32_t number = kNoEvent) {
    QString heard;
    while (WaitForEvent(0) != kNoEvent) {
        if (number != kNoEvent && number != EventNumber()) continue;
        heard += QString::asprintf("%d %ld %ld %ld|", EventNumber(), EventWindow(), EventObject(),
                                   EventType());
    }
    return heard.toStdString();
}

// Acts, one behind the other, and what `told` says behind each.
using Steps = std::vector<std::pair<std::function<void()>, std::string>>;

template <typename Told>
void Play(const Steps& steps, Told told) {
    for (const auto& [act, expected] : steps) EXPECT_EQ((act(), told()), expected);
}

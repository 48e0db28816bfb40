#include "tests/support/StartState.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <cstdlib>
#include <string>

#include "base/AppPaths.h"
#include "tests/support/VirtualClock.h"
#include "ui/drawing/Drawing.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Windows.h"

namespace {

class StartState : public testing::EmptyTestEventListener {
  public:
    explicit StartState(void (*procedure)()) : putBack(procedure) {}

  private:
    void OnTestEnd(const testing::TestInfo&) override {
        const VirtualClock clock;  // no pause of the program takes time here
        putBack();
        PutBack(appPaths);
        setenv("HOME", home.c_str(), 1);
    }

    void (*const putBack)();
    const std::string home = getenv("HOME");
};

}  // namespace

bool KeepStartState(void (*putBack)()) {
    testing::UnitTest::GetInstance()->listeners().Append(new StartState(putBack));
    return true;
}

void PutBackInterface() {
    AnswerDialogs(nullptr);
    RequestLeave(false);
    for (int i = 0; i < 3; ++i) StopDrawing();
    CloseNumberedWindow(-1);
    DropMenus();
    DropAllHandlers();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    DropAllEvents();
    SetClipboardText("");
}

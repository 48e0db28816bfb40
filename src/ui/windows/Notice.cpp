#include "ui/windows/Notice.h"

#include "base/Numbers.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Windows.h"

// The place of the call is ignored: a window with that flag stands centred. Its gadget list
// is closed again, so that the caller's own goes on.
void ShowNotice(const QString& text, int ms) {
    const int parent = WindowIsOpen(kFileManagerWindow) ? kFileManagerWindow : kMainWindow;
    OpenNumberedWindow(kNoticeWindow, 10, 10, 200, 80, "Notice", kWindowCentredOnParent, parent);
    TextGadget(kNoticeText, 5, 5, 190, 70, text);
    CloseGadgetList();
    AddWindowTimer(kMainWindow, kNoticeTimer, ms);
}

void CloseNotice() {
    RemoveWindowTimer(kMainWindow, kNoticeTimer);
    CloseNumberedWindow(kNoticeWindow);
}

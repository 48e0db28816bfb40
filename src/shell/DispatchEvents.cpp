// Events of the main window by their number, and events by window.
#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "link/LinkPrimitives.h"
#include "link/Servers.h"
#include "shell/Dispatch.h"
#include "shell/Drops.h"
#include "shell/Route.h"
#include "shell/ServerChunks.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/events/BoundHandlers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/MenuItem.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"

namespace {

bool exitAsked = false;

// Nothing in the program posts this; the route is kept for who does.
void LoadRequest(int) {
    TerminalPrintLine(uploadSource.currentFile);
    SendFile(uploadSource.currentFile, false);
}

// Input of a canvas that comes by its own number is read and dropped.
void CanvasInput(int) {
    EventAttribute(kTerminalCanvas, kAttributeInput);
}

// clang-format off
const Route mainWindowRoutes[] = {
    {kEventRightButtonUp,  kEventRightButtonUp,  kAny, [](int) { if (FocusedGadget() == kTerminalCanvas) ShowPopupMenu(kPopupMenu, kMainWindow); }},
    {kEventGadget,         kEventGadget,         kAny, [](int) { DispatchGadget(EventObject(), EventType()); }},
    {kEventMenu,           kEventMenu,           kAny, [](int) { DispatchMenu(EventObject()); }},
    {kEventWindowDrop,     kEventWindowDrop,     kAny, [](int) { HandleWindowDrop(); }},
    {kEventGadgetDrop,     kEventGadgetDrop,     kAny, [](int) { HandleTerminalDrop(); }},
    {kEventSendDone,       kEventSendDone,       kAny, [](int) { BatchSend(kQueueNext); }},
    {kEventSendStatus,     kEventSendStatus,     kAny, [](int) { ShowSendStatus(); }},
    {kEventReceiveDone,    kEventReceiveDone,    kAny, [](int) { BatchReceive(kQueueNext); }},
    {kEventReceiveStatus,  kEventReceiveStatus,  kAny, [](int) { ShowReceiveStatus(); }},
    {kEventLoadRequest,    kEventLoadRequest,    kAny, LoadRequest},
    {kEventTimer,          kEventTimer,          kAny, [](int) { DispatchTimer(EventObject()); }},
    {kEventServerMessage,  kEventServerMessage,  kAny, [](int) { HandleServerMessage(EventType()); }},
    {kEventServerChunk,    kEventServerChunk,    kAny, [](int) { HandleServerChunk(EventType()); }},
    {kEventTerminalReply,  kEventTerminalReply,  kAny, [](int) { SendText(TakeReplyText()); }},
    {kEventPrintLine,      kEventPrintLine,      kAny, [](int) { PrintHandedLines(); }},
    {kEventCanvasInput,    kEventCanvasInput,    kAny, CanvasInput},
    {kEventSizeWindow,     kEventSizeWindow,     kAny, [](int) { LayoutMainWindow(); }},
    {kEventCloseWindow,    kEventCloseWindow,    kAny, [](int) { exitAsked = true; }},
};
// clang-format on

}  // namespace

const bool& exitRequested = exitAsked;

void DispatchEvent(int32_t event, int64_t window) {
    switch (window) {
        case kMainWindow:
            return TakeRoute(mainWindowRoutes, event);
        case kHelpWindow:
            return DispatchHelpWindow(event, EventObject());
        case kFileManagerWindow:
            return DispatchFileManagerWindow(event, EventObject());
        default:
            return;  // the notice window takes no events of its own
    }
}

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
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtParser.h"
#include "ui/Gadgets.h"
#include "ui/InterfaceEvent.h"
#include "ui/MenuItem.h"
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
    {kEventRightButtonUp,  kEventRightButtonUp,  kAnyType, [](int) { if (FocusedGadget() == kTerminalCanvas) ShowPopupMenu(kPopupMenu, kMainWindow); }},
    {kEventGadget,         kEventGadget,         kAnyType, [](int) { DispatchGadget(EventObject(), EventType()); }},
    {kEventMenu,           kEventMenu,           kAnyType, [](int) { DispatchMenu(EventObject()); }},
    {kEventWindowDrop,     kEventWindowDrop,     kAnyType, [](int) { HandleWindowDrop(); }},
    {kEventGadgetDrop,     kEventGadgetDrop,     kAnyType, [](int) { HandleTerminalDrop(); }},
    {kEventSendDone,       kEventSendDone,       kAnyType, [](int) { BatchSend(kQueueNext); }},
    {kEventSendStatus,     kEventSendStatus,     kAnyType, [](int) { ShowSendStatus(); }},
    {kEventReceiveDone,    kEventReceiveDone,    kAnyType, [](int) { BatchReceive(kQueueNext); }},
    {kEventReceiveStatus,  kEventReceiveStatus,  kAnyType, [](int) { ShowReceiveStatus(); }},
    {kEventLoadRequest,    kEventLoadRequest,    kAnyType, LoadRequest},
    {kEventTimer,          kEventTimer,          kAnyType, [](int) { DispatchTimer(EventObject()); }},
    {kEventServerMessage,  kEventServerMessage,  kAnyType, [](int) { HandleServerMessage(EventType()); }},
    {kEventServerChunk,    kEventServerChunk,    kAnyType, [](int) { HandleServerChunk(EventType()); }},
    {kEventTerminalReply,  kEventTerminalReply,  kAnyType, [](int) { SendText(TakeReplyText()); }},
    {kEventPrintLine,      kEventPrintLine,      kAnyType, [](int) { PrintHandedLines(); }},
    {kEventCanvasInput,    kEventCanvasInput,    kAnyType, CanvasInput},
    {kEventSizeWindow,     kEventSizeWindow,     kAnyType, [](int) { LayoutMainWindow(); }},
    {kEventCloseWindow,    kEventCloseWindow,    kAnyType, [](int) { exitAsked = true; }},
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

// Events of the main window by their number, and events by window.
#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "link/LinkPrimitives.h"
#include "link/Servers.h"
#include "shell/Dispatch.h"
#include "shell/Drops.h"
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

void RightButtonUp() {
    if (FocusedGadget() == kTerminalCanvas) ShowPopupMenu(kPopupMenu, kMainWindow);
}

void GadgetEvent() {
    DispatchGadget(EventObject(), EventType());
}

void MenuEvent() {
    DispatchMenu(EventObject());
}

void TimerEvent() {
    DispatchTimer(EventObject());
}

void SendNext() {
    BatchSend(kQueueNext);
}

void ReceiveNext() {
    BatchReceive(kQueueNext);
}

// Nothing in the program posts this; the route is kept for who does.
void LoadRequest() {
    TerminalPrintLine(uploadSource.currentFile);
    SendFile(uploadSource.currentFile, false);
}

void ServerMessage() {
    HandleServerMessage(EventType());
}

void ServerChunk() {
    HandleServerChunk(EventType());
}

void SendReply() {
    SendText(TakeReplyText());
}

// Input of a canvas that comes by its own number is read and dropped.
void CanvasInput() {
    EventAttribute(kTerminalCanvas, kAttributeInput);
}

void CloseWindow() {
    exitAsked = true;
}

struct EventRow {
    int32_t event;
    void (*procedure)();
};

// clang-format off
const EventRow eventRows[] = {
    {kEventRightButtonUp,   RightButtonUp},
    {kEventGadget,          GadgetEvent},
    {kEventMenu,            MenuEvent},
    {kEventWindowDrop,      HandleWindowDrop},
    {kEventGadgetDrop,      HandleTerminalDrop},
    {kEventSendDone,        SendNext},
    {kEventSendStatus,      ShowSendStatus},
    {kEventReceiveDone,     ReceiveNext},
    {kEventReceiveStatus,   ShowReceiveStatus},
    {kEventLoadRequest,     LoadRequest},
    {kEventTimer,           TimerEvent},
    {kEventServerMessage,   ServerMessage},
    {kEventServerChunk,     ServerChunk},
    {kEventTerminalReply,   SendReply},
    {kEventPrintLine,       PrintHandedLines},
    {kEventCanvasInput,     CanvasInput},
    {kEventSizeWindow,      LayoutMainWindow},
    {kEventCloseWindow,     CloseWindow},
};
// clang-format on

void DispatchMainWindow(int32_t event) {
    for (const EventRow& row : eventRows) {
        if (row.event == event) return row.procedure();
    }
}

}  // namespace

const bool& exitRequested = exitAsked;

void DispatchEvent(int32_t event, int64_t window) {
    switch (window) {
        case kMainWindow:
            return DispatchMainWindow(event);
        case kHelpWindow:
            return DispatchHelpWindow(event, EventObject());
        case kFileManagerWindow:
            return DispatchFileManagerWindow(event, EventObject());
        default:
            return;  // the notice window takes no events of its own
    }
}

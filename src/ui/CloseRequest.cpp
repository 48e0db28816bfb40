#include "ui/CloseRequest.h"

#include <xcb/xcb.h>

#include <QX11Info>
#include <cstdlib>
#include <cstring>

#include "ui/events/NumberedWidgets.h"

namespace {

struct CloseLook {
    xcb_window_t window;
    bool found;
};

xcb_atom_t AtomOf(const char* name) {
    xcb_connection_t* const display = QX11Info::connection();
    const auto cookie = xcb_intern_atom(display, false, static_cast<uint16_t>(strlen(name)), name);
    xcb_intern_atom_reply_t* const reply = xcb_intern_atom_reply(display, cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    free(reply);
    return atom;
}

bool IsCloseMessage(const xcb_client_message_event_t& message) {
    static const xcb_atom_t protocols = AtomOf("WM_PROTOCOLS");
    static const xcb_atom_t close = AtomOf("WM_DELETE_WINDOW");
    return message.type == protocols && message.data.data32[0] == close;
}

// The top bit says that another client sent the event.
bool LookAtEvent(xcb_generic_event_t* event, void* data) {
    auto* look = static_cast<CloseLook*>(data);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event);
    look->found = message.window == look->window && IsCloseMessage(message);
    return look->found;
}

}  // namespace

bool CloseIsPending(int window) {
    const QWidget* found = WindowWidget(window);
    if (!found || !QX11Info::isPlatformX11()) return false;
    CloseLook look = {static_cast<xcb_window_t>(found->internalWinId()), false};
    QX11Info::peekEventQueue(LookAtEvent, &look);
    return look.found;
}

// Requests to close that the toolkit has not delivered yet. Interface thread.
#pragma once

// True when the display server has sent the window manager's request to close this window
// (ICCCM, WM_DELETE_WINDOW) and the toolkit has not looked at it. On other platforms than
// X11 always false: the request is then seen when the toolkit delivers it.
bool CloseIsPending(int window);

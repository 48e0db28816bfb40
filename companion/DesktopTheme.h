// A dark desktop, dark windows.
#pragma once

class QApplication;

// Asks the desktop portal for the user's colour scheme, now and each time that the program comes
// to the front, and darkens the windows when it is dark. A palette that is dark by itself, as
// some desktops give it to the toolkit, stays as it is.
void FollowDesktopTheme(QApplication& application);

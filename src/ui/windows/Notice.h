// The timed notice: a small window over the file manager, if that is open, or else over
// the main window. It is not modal and takes no events. Interface thread.
#pragma once

#include <QString>

// Opens window 183 with the text and starts timer 184 of the main window with the
// period. A notice that stands already is not guarded against.
void ShowNotice(const QString& text, int ms);

// Stops timer 184 and closes window 183 if it is open.
void CloseNotice();

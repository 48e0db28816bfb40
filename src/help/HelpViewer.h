// The help window and the About box. Interface thread.
#pragma once

#include <QString>

void ShowHelpViewer();
// Window 155 was resized or is to close; one of its buttons was clicked.
void ResizeHelpViewer();
void CloseHelpViewer();
void HelpButtonClicked(int gadget);

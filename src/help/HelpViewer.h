// The help window: a web view over the pages in the data folder, with two buttons for the
// two indexes and two to go through the history. Interface thread.
#pragma once

#include <QString>

// Opens the window, or brings it forward, and in both cases loads the editor's index.
void ShowHelpViewer();

// Window 155 was resized, or is to close: both store its geometry.
void ResizeHelpViewer();
void CloseHelpViewer();

// One of the buttons 157 to 160 was clicked.
void HelpButtonClicked(int gadget);

// Address of the index page in a folder of the data folder, encoded. Whether the page is
// there is not looked at.
QString HelpIndexAddress(const QString& folder);

// The View and Mode menus. Interface thread.
#pragma once

// Items 185 to 190: shows or hides a toolbar row.
void ToggleToolbarRow(int item);
// Items 191 to 200: sets the terminal mode and shows its name.
void ChooseMode(int item);

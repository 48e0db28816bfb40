// The menu bar, the pop-up menu, and the ticks they start with. Interface thread.
#pragma once

void CreateMainMenu();
void CreateEditPopup();
// The ticks as the settings say; the line ending's also sets its bytes.
void SetStartTicks();

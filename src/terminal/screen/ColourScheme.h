// The default colours and the switch of the scheme. Interface thread.
#pragma once

// Menu item 9: the other scheme.
void SwitchDarkBackground();
// Default colours by the setting, made current.
void SetSchemeColours();

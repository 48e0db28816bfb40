// The default colours and the switch of the scheme. Interface thread.
#pragma once

// Menu item 9: the other scheme.
void SwitchDarkBackground();

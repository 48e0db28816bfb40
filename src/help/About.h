// The About box. Interface thread.
#pragma once

#include <QString>

// Shows version, build date, folders and contact in one message box. Bound to its menu
// item.
void ShowAbout();

// Its text.
QString AboutText();

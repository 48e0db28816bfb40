// The desktop's style for gadgets whose size the program sets, whatever the style would like
// to have around a text.
#pragma once

class QWidget;

// For combo boxes and text entries.
void UseTightStyle(QWidget* widget);

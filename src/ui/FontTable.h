// The fonts behind the numbers of Fonts.h, for the rest of this folder. Interface thread.
#pragma once

#include <QFont>

// Null for a number that no font has. The font stays until it is freed or replaced.
const QFont* NumberedFont(int font);

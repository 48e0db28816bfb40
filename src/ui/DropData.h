// What a drop event carries.
#pragma once

#include <QString>

#include "ui/DragDrop.h"

struct DropData {
    DropFormat format;
    QString content;  // the text, or paths with LF between them
};

// As an event's dataFree it also marks the data as that of a drop.
void FreeDropData(void* data);

#include "shell/Drops.h"

#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/events/CurrentEvent.h"
#include "ui/windows/DragDrop.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"

void HandleWindowDrop() {
    SetCurrentFile(EventDropFiles());
    BatchSend(uploadSource.currentFile);
}

void HandleTerminalDrop() {
    if (EventObject() != kTerminalCanvas) return;
    if (EventDropFormat() != DropFormat::kText) return HandleWindowDrop();
    const QString text = EventDropText();
    TerminalPrintLine("Drop text");
    UploadPastedText(text);
}

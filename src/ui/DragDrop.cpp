#include "ui/DragDrop.h"

#include "base/Numbers.h"
#include "ui/CurrentEvent.h"
#include "ui/DropData.h"
#include "ui/GadgetTable.h"
#include "ui/PBDropHandler.h"
#include "ui/PBGadgetFunctions.h"
#include "ui/PBQMainWindow.h"
#include "ui/WindowTable.h"

namespace {

// One handler for a widget, which takes the formats of all calls.
void EnableDrop(QWidget* target, DropFormat format) {
    auto* handler = target->findChild<PBDropHandler*>(QString(), Qt::FindDirectChildrenOnly);
    if (!handler) handler = new PBDropHandler(target);
    handler->Enable(format);
}

// The current event's drop; null when it is none.
const DropData* CurrentDrop() {
    const InterfaceEvent& event = CurrentEvent();
    const bool isDrop = event.dataFree == FreeDropData;
    return isDrop ? static_cast<const DropData*>(event.data) : nullptr;
}

// Files are never given as text, nor text as files.
QString ContentOf(DropFormat format) {
    const DropData* drop = CurrentDrop();
    return drop && drop->format == format ? drop->content : QString();
}

}  // namespace

void FreeDropData(void* data) {
    delete static_cast<DropData*>(data);
}

void EnableWindowDrop(int window, DropFormat format) {
    if (PBQMainWindow* found = FindWindow(window)) EnableDrop(found, format);
}

void EnableGadgetDrop(int gadget, DropFormat format) {
    if (const PBGadgetFunctions* functions = FindGadget(gadget)) {
        EnableDrop(functions->Widget(), format);
    }
}

// An event that is no drop reads as a text, of which there is none.
DropFormat EventDropFormat() {
    const DropData* drop = CurrentDrop();
    return drop ? drop->format : DropFormat::kText;
}

QString EventDropFiles() {
    return ContentOf(DropFormat::kFiles);
}

QString EventDropText() {
    return ContentOf(DropFormat::kText);
}

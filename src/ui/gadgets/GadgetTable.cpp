#include "ui/gadgets/GadgetTable.h"

#include <QAbstractScrollArea>
#include <QVariant>
#include <algorithm>
#include <cassert>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "ui/events/InterfaceThread.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/PBEventFilterInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

std::map<int, std::unique_ptr<PBGadgetFunctions>> gadgets;
std::vector<QWidget*> openLists;  // the one that was opened last is at the end
std::optional<QFont> defaultFont;

}  // namespace

PBGadgetFunctions* FindGadget(int gadget) {
    assert(OnInterfaceThread());
    const auto found = gadgets.find(gadget);
    return found == gadgets.end() ? nullptr : found->second.get();
}

QWidget* GadgetWidget(int gadget) {
    const PBGadgetFunctions* functions = FindGadget(gadget);
    return functions ? functions->Widget() : nullptr;
}

// The gadget that had the number goes first; its widget might hold the open list.
QWidget* BeginGadget(int gadget) {
    assert(OnInterfaceThread());
    if (gadget < 0) return nullptr;
    FreeGadget(gadget);
    return openLists.empty() ? nullptr : openLists.back();
}

void EnterGadget(PBGadgetFunctions* functions, const QRect& place) {
    QWidget* const widget = functions->Widget();
    gadgets[functions->Gadget()].reset(functions);
    if (defaultFont) widget->setFont(*defaultFont);
    widget->installEventFilter(GadgetEventFilter());
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) {
        area->viewport()->installEventFilter(GadgetEventFilter());
    }
    widget->setGeometry(place);
    functions->Resized();
    widget->show();  // in a window that is on the screen already nobody else does
}

void SetDefaultGadgetFont(const QFont& font) {
    defaultFont = font;
}

void FreeGadget(int gadget) {
    PBGadgetFunctions* const functions = FindGadget(gadget);
    if (!functions) return;
    QWidget* const widget = functions->Widget();
    FreeGadgetsIn(widget);
    gadgets.erase(gadget);
    // Nothing that the dying widget still does is an event of a gadget.
    widget->setProperty(kGadgetProperty, QVariant());
    RetireWidget(widget);
}

// Collected before any goes: freeing one changes the table.
void FreeGadgetsIn(const QWidget* widget) {
    std::vector<int> inside;
    for (const auto& [number, functions] : gadgets) {
        // To the toolkit a widget is an ancestor of itself.
        const QWidget* other = functions->Widget();
        if (other != widget && widget->isAncestorOf(other)) inside.push_back(number);
    }
    for (const int number : inside) FreeGadget(number);
}

// The widget may be the sender of the signal that is being handled, so it is only hidden
// and cut off here; the next wait deletes it.
void RetireWidget(QWidget* widget) {
    const auto goes = [=](const QWidget* list) { return widget->isAncestorOf(list); };
    openLists.erase(std::remove_if(openLists.begin(), openLists.end(), goes), openLists.end());
    widget->hide();
    widget->setParent(nullptr);
    widget->deleteLater();
}

void OpenGadgetList(QWidget* parent) {
    openLists.push_back(parent);
}

void CloseGadgetList() {
    if (!openLists.empty()) openLists.pop_back();
}

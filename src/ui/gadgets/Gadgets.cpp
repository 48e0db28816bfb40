#include "ui/gadgets/Gadgets.h"

#include <QAccessible>
#include <QApplication>
#include <QFont>

#include "base/Numbers.h"
#include "ui/drawing/Fonts.h"
#include "ui/events/BoundHandlers.h"
#include "ui/events/NumberedWidgets.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/GadgetTableInternal.h"
#include "ui/gadgets/PBGadgetFunctionsInternal.h"

namespace {

// Asks a gadget for a value, or gives `none` for an unknown number.
template <typename Value, typename... Arguments>
Value Ask(int gadget, Value none, Value (PBGadgetFunctions::*question)(Arguments...) const,
          Arguments... arguments) {
    const PBGadgetFunctions* functions = FindGadget(gadget);
    return functions ? (functions->*question)(arguments...) : none;
}

// Relative to the window's inner area or the container, like all places of gadgets.
QRect PlaceOf(int gadget) {
    const QWidget* widget = GadgetWidget(gadget);
    return widget ? widget->geometry() : QRect(0, 0, 0, 0);
}

}  // namespace

bool GadgetExists(int gadget) {
    return FindGadget(gadget) != nullptr;
}

void HideGadget(int gadget, bool hidden) {
    if (QWidget* widget = GadgetWidget(gadget)) widget->setHidden(hidden);
}

// Its own setting: a gadget on show in a hidden container is not hidden.
bool GadgetHidden(int gadget) {
    const QWidget* widget = GadgetWidget(gadget);
    return widget && widget->isHidden();
}

void DisableGadget(int gadget, bool disabled) {
    if (QWidget* widget = GadgetWidget(gadget)) widget->setDisabled(disabled);
}

// Its own setting again, whatever the container's.
bool GadgetDisabled(int gadget) {
    const QWidget* widget = GadgetWidget(gadget);
    return widget && !widget->isEnabledTo(widget->parentWidget());
}

void SetGadgetText(int gadget, const QString& text) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) functions->SetText(text);
}

QString GadgetText(int gadget) {
    return Ask(gadget, QString(), &PBGadgetFunctions::Text);
}

void SetGadgetState(int gadget, int state) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) functions->SetState(state);
}

int GadgetState(int gadget) {
    return Ask(gadget, 0, &PBGadgetFunctions::State);
}

// A hidden gadget takes its size at once as well: what is drawn on it before it shows has
// to find its place.
void ResizeGadget(int gadget, int x, int y, int width, int height) {
    PBGadgetFunctions* const functions = FindGadget(gadget);
    if (!functions) return;
    QWidget* const widget = functions->Widget();
    const QRect now = widget->geometry();
    widget->setGeometry(Kept(x, now.x()), Kept(y, now.y()), Kept(width, now.width()),
                        Kept(height, now.height()));
    functions->Resized();
}

int GadgetX(int gadget) {
    return PlaceOf(gadget).x();
}
int GadgetY(int gadget) {
    return PlaceOf(gadget).y();
}
int GadgetWidth(int gadget) {
    return PlaceOf(gadget).width();
}
int GadgetHeight(int gadget) {
    return PlaceOf(gadget).height();
}

void FocusGadget(int gadget) {
    if (QWidget* widget = GadgetWidget(gadget)) widget->setFocus();
}

// The focus may be in a part of a gadget, such as the rows of a list.
int FocusedGadget() {
    return GadgetAround(QApplication::focusWidget());
}

// Readers of the screen say the tooltip as the gadget's name. Without one the toolkit
// takes the caption.
void SetGadgetTooltip(int gadget, const QString& text) {
    QWidget* const widget = GadgetWidget(gadget);
    if (!widget) return;
    widget->setToolTip(text);
    widget->setAccessibleName(text);
}

void SetGadgetName(int gadget, const QString& name) {
    if (QWidget* const widget = GadgetWidget(gadget)) widget->setAccessibleName(name);
}

QString GadgetName(int gadget) {
    QAccessibleInterface* known = QAccessible::queryAccessibleInterface(GadgetWidget(gadget));
    return known ? known->text(QAccessible::Name) : QString();
}

QString GadgetTooltip(int gadget) {
    const QWidget* widget = GadgetWidget(gadget);
    return widget ? widget->toolTip() : QString();
}

// A font that does not exist leaves the gadget as it is.
void SetGadgetFont(int gadget, int font) {
    const QFont* look = NumberedFont(font);
    if (!look) return;
    if (gadget == -1) {
        SetDefaultGadgetFont(*look);
    } else if (QWidget* widget = GadgetWidget(gadget)) {
        widget->setFont(*look);
    }
}

void AddGadgetItem(int gadget, const QString& text) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) functions->AddItem(text);
}

void ClearGadgetItems(int gadget) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) functions->ClearItems();
}

int GadgetItemCount(int gadget) {
    return Ask(gadget, 0, &PBGadgetFunctions::ItemCount);
}

QString GadgetItemText(int gadget, int item) {
    return Ask(gadget, QString(), &PBGadgetFunctions::ItemText, item);
}

bool GadgetItemSelected(int gadget, int item) {
    return Ask(gadget, false, &PBGadgetFunctions::ItemSelected, item);
}

void SetGadgetItemSelected(int gadget, int item, bool selected) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) {
        functions->SetItemSelected(item, selected);
    }
}

bool GadgetItemIsFile(int gadget, int item) {
    return Ask(gadget, false, &PBGadgetFunctions::ItemIsFile, item);
}

int GadgetColumnWidth(int gadget, int column) {
    return Ask(gadget, 0, &PBGadgetFunctions::ColumnWidth, column);
}

void SetGadgetColumnWidth(int gadget, int column, int width) {
    if (PBGadgetFunctions* functions = FindGadget(gadget)) {
        functions->SetColumnWidth(column, width);
    }
}

// A typed binding holds in whatever window the gadget lies; no key leaves both the window
// and the type open, so an untyped one is tied to the window that the gadget lies in now.
void BindGadgetHandler(int gadget, EventHandler handler, int64_t type) {
    if (type != kAny) {
        BindHandler(kEventGadget, kAny, gadget, type, handler);
    } else if (const QWidget* widget = GadgetWidget(gadget)) {
        BindHandler(kEventGadget, WindowOf(widget), gadget, kAny, handler);
    }
}

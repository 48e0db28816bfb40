// What the tests of the interface need, beside what a user does (tests/support/Gestures.h).
#pragma once

#include <QtTest>
#include <QtWidgets>

#include "tests/support/Gestures.h"
#include "ui/FlushPainting.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/Drawing.h"
#include "ui/drawing/Fonts.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/events/BoundHandlers.h"
#include "ui/gadgets/CheckBoxGadget.h"
#include "ui/gadgets/ComboBoxGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/ExplorerListGadget.h"
#include "ui/gadgets/ListGadget.h"
#include "ui/gadgets/PathBoxGadget.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/SplitterGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/DragDrop.h"
#include "ui/windows/FileDialogs.h"
#include "ui/windows/FilePatternsInternal.h"
#include "ui/windows/MenuItem.h"

using UiTest = WithWindow;

// The widget behind a number, of the kind that it is known to be.
template <typename Kind>
Kind* KindOf(int gadget) {
    return static_cast<Kind*>(WidgetOfGadget(gadget));
}

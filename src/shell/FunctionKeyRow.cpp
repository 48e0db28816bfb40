#include "shell/FunctionKeyRow.h"

#include <QString>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "ui/Gadgets.h"

namespace {

constexpr int kNumberBase = 106;  // button 117 is F1, which a VT220 numbers 11

// The VT220's numbers leave 16 and 22 out.
int KeyNumber(int gadget) {
    int number = gadget - kNumberBase;
    if (number > 15) ++number;
    if (number > 21) ++number;
    return number;
}

}  // namespace

void FunctionKeyButtonClicked(int gadget) {
    SendCommandLine("\x1b[" + QString::number(KeyNumber(gadget)) + "~", false);
    FocusGadget(kTerminalCanvas);
}

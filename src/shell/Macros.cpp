#include "shell/Macros.h"

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "shell/MacroText.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Dialogs.h"

namespace {

std::vector<MacroEntry> macros;

int Size() {
    return static_cast<int>(macros.size());
}

bool EmptyMacros(const QString& label) {
    bool found = false;
    for (MacroEntry& macro : macros) {
        if (macro.label != label) continue;
        macro.text.clear();
        found = true;
    }
    return found;
}

}  // namespace

const std::vector<MacroEntry>& macroList = macros;

void AddMacro(const MacroEntry& macro) {
    if (Size() < kMostMacros) macros.push_back(macro);
}

void ClearMacros() {
    macros.clear();
}

void MacroButtonClicked(int gadget) {
    const int index = gadget - kFirstMacroButton;
    if (index < 0 || index >= Size()) return;
    SendCommandLine(ExpandMacroText(macros[static_cast<size_t>(index)].text), false);
    FocusGadget(kTerminalCanvas);
}

// The text of the command bar is not stored, whatever the button's tooltip says: a macro
// gets its text from the settings file alone.
void SaveMacro() {
    const QString label = AskText("Macro", "Nickname for macro?", QString());
    if (label.isEmpty() || EmptyMacros(label) || Size() >= kMostMacros) return;
    AddMacro({label, QString()});
    LabelButton(kFirstMacroButton + Size() - 1, label);
}

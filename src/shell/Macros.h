// Macros: texts to send, each on a button of the fourth toolbar row. Interface thread.
#pragma once

#include <QString>
#include <vector>

constexpr int kMostMacros = 10;

struct MacroEntry {
    QString label;  // the button's label
    QString text;   // in the escape language of MacroText.h
};

// Entry i is shown on button kFirstMacroButton + i.
extern const std::vector<MacroEntry>& macroList;

// For the settings file. Beyond kMostMacros nothing is added.
void AddMacro(const MacroEntry& macro);
void ClearMacros();

// A click on a macro's button: sends its text without an end of line and gives the
// terminal the focus. Nothing for a button without an entry.
void MacroButtonClicked(int gadget);

// Asks for a label, empties the text of every macro that has it, or adds one with an empty
// text. With a new label while the list is full nothing happens.
void SaveMacro();

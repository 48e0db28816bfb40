// The main window: its gadgets, each with kind, place, text and tooltip, and the start of
// what stands in them. Interface thread.
#pragma once

// Opens window 0 with the stored place and makes font 57 the default.
void OpenMainWindow();
// The toolbar rows with their gadgets, top to bottom.
void CreateToolbarRows();
// Frame canvas and terminal canvas, then the terminal itself.
void CreateTerminal();
// The size text and the scroll bar beside the terminal.
void CreateScrollBar();
void EnableDrops();
// Tooltips, entry fonts and the combo boxes' items.
void DressGadgets();

// The left half of the file manager: what its buttons do, and how its path box and its
// list are kept on one folder. Interface thread, from event handlers.
#pragma once

// ">>>": the selected files to the device; in flash view the first of them to the slot
// that is clicked next, which is asked about once in the life of a settings file.
void CopyToDevice();

// "Del": the selected files, at once and with no question. Folders stay.
void DeleteOnPc();

// "New folder", with a name that is asked for. The list does not show it by itself.
void NewPcFolder();

// "Edit": starts the companion editor with the selected file.
void EditSelectedFile();

// List 162 entered a folder; path box 180 was changed or confirmed.
void PcListChanged();
void PathBoxChanged();

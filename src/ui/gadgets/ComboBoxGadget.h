// A combo box that the user picks from. Its text can be set to one that is not among its
// items, and is then shown all the same, as an entry above them that can be picked but is
// not counted. Nothing is chosen until the program or the user does. A pick raises event 3
// with type 768; a change by the program raises nothing.
#pragma once

void ComboBoxGadget(int gadget, int x, int y, int width, int height);

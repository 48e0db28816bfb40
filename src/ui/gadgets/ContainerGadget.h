// A frameless container. Gadgets created next lie in it, until CloseGadgetList.
#pragma once

void ContainerGadget(int gadget, int x, int y, int width, int height);

// A web view for local help pages. Link clicks are delegated to this layer, which loads
// the page. Interface thread.
#pragma once

#include <QString>

void WebGadget(int gadget, int x, int y, int width, int height);

// Loads a percent-encoded address.
void LoadWebPage(int gadget, const QString& address);
void WebGadgetBack(int gadget);
void WebGadgetForward(int gadget);

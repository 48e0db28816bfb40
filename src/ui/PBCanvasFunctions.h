// The gadget operations of a canvas.
#pragma once

#include "ui/PBCanvasWidget.h"
#include "ui/PBGadgetFunctions.h"

class PBCanvasFunctions : public PBGadgetFunctions {
    Q_OBJECT
  public:
    PBCanvasFunctions(int gadget, PBCanvasWidget* shown)
        : PBGadgetFunctions(gadget, shown), canvas(shown) {}

    PBCanvasWidget* Canvas() { return canvas; }
    void Resized() override { canvas->FitImage(); }
    bool ReportsFocus() const override { return true; }

  private:
    PBCanvasWidget* const canvas;
};

// The canvas of a number; null for none, or for a gadget of another kind.
PBCanvasWidget* FindCanvas(int gadget);

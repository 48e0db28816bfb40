// The gadgets of presets, macros, device and link, filled from what the settings remember.
// Interface thread.
#pragma once

// Labels the preset and macro buttons from their lists; the last used preset, or the
// first, becomes the live one.
void FillPresetAndMacroButtons();
// Port, speed, address and transport as they are stored.
void ShowStoredLink();
// Gadgets 45 and 46 from the stored device.
void ShowStoredDevice();
// The list of port names in gadget 39, which then shows the port in use. The list is
// fixed and does not look at the system.
void FillPortList();
// A preset with the nickname that gadget 45 shows gives gadget 46 its specification,
// which is applied.
void ApplyNamedPreset();
// Shows gadget 41 and hides 42 for a device behind TCP, or the other way about, and
// makes that the transport.
void ChooseTransport(bool tcp);

// Geometry of the help window, as the settings file keeps it.
#pragma once

struct HelpSettings {
    int x = 200, y = 200;           // of the frame
    int width = 700, height = 287;  // of the inner area
    int fontSize = 10;              // read and written only
};

extern const HelpSettings& helpSettings;

// For the settings table alone, which fills the record at start and reads it at the end.
HelpSettings& HelpSettingsForTable();

void SetHelpPlace(int x, int y, int width, int height);

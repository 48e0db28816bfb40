#include "help/HelpSettings.h"

namespace {

HelpSettings settings;

}  // namespace

const HelpSettings& helpSettings = settings;

HelpSettings& HelpSettingsForTable() {
    return settings;
}

void SetHelpPlace(int x, int y, int width, int height) {
    settings.x = x;
    settings.y = y;
    settings.width = width;
    settings.height = height;
}

// The settings of keys and mouse.
#include "terminal/input/TerminalInput.h"

namespace {

InputSettings settings;

}  // namespace

const InputSettings& inputSettings = settings;

InputSettings& InputSettingsForTable() {
    return settings;
}

#include "base/Numbers.h"
#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerWindow.h"
#include "filemanager/PcPane.h"
#include "help/HelpViewer.h"
#include "shell/Dispatch.h"

// The windows beside the main one. Most buttons of the file manager run through handlers
// bound in the layer and don't pass here.

namespace {

struct SideRow {
    int32_t event;
    int gadget;  // kEveryObject for events of the window itself
    void (*procedure)();
};

constexpr int kEveryObject = -2;

template <size_t kCount>
void Run(const SideRow (&rows)[kCount], int32_t event, int64_t gadget) {
    for (const SideRow& row : rows) {
        if (row.event == event && (row.gadget == kEveryObject || row.gadget == gadget)) {
            return row.procedure();
        }
    }
}

void HelpEditorIndex() {
    HelpButtonClicked(kHelpEditorIndexButton);
}

void HelpBasicIndex() {
    HelpButtonClicked(kHelpBasicIndexButton);
}

void HelpBack() {
    HelpButtonClicked(kHelpBackButton);
}

void HelpForward() {
    HelpButtonClicked(kHelpForwardButton);
}

// clang-format off
const SideRow helpRows[] = {
    {kEventSizeWindow,  kEveryObject,           ResizeHelpViewer},
    {kEventCloseWindow, kEveryObject,           CloseHelpViewer},
    {kEventGadget,      kHelpEditorIndexButton, HelpEditorIndex},
    {kEventGadget,      kHelpBasicIndexButton,  HelpBasicIndex},
    {kEventGadget,      kHelpBackButton,        HelpBack},
    {kEventGadget,      kHelpForwardButton,     HelpForward},
};

const SideRow fileManagerRows[] = {
    {kEventSizeWindow,  kEveryObject, ResizeFileManager},
    {kEventCloseWindow, kEveryObject, CloseFileManager},
    {kEventGadget,      kDeviceList,  DeviceListClicked},
    {kEventGadget,      kPcList,      PcListChanged},
    {kEventGadget,      kPcPathEntry, PathBoxChanged},
};
// clang-format on

}  // namespace

void DispatchHelpWindow(int32_t event, int64_t gadget) {
    Run(helpRows, event, gadget);
}

void DispatchFileManagerWindow(int32_t event, int64_t gadget) {
    Run(fileManagerRows, event, gadget);
}

#include "base/Numbers.h"
#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerWindow.h"
#include "filemanager/PcPane.h"
#include "help/HelpViewer.h"
#include "shell/Dispatch.h"
#include "shell/Route.h"
#include "ui/events/BoundHandlers.h"

// The windows beside the main one. Most buttons of the file manager run through handlers
// bound in the layer and don't pass here.

namespace {

// clang-format off
const Route helpRoutes[] = {
    {kEventSizeWindow,  kEventSizeWindow,  kAny,               [](int) { ResizeHelpViewer(); }},
    {kEventCloseWindow, kEventCloseWindow, kAny,               [](int) { CloseHelpViewer(); }},
    {kEventGadget,      kEventGadget,      kHelpEditorIndexButton, [](int) { HelpButtonClicked(kHelpEditorIndexButton); }},
    {kEventGadget,      kEventGadget,      kHelpBasicIndexButton,  [](int) { HelpButtonClicked(kHelpBasicIndexButton); }},
    {kEventGadget,      kEventGadget,      kHelpBackButton,        [](int) { HelpButtonClicked(kHelpBackButton); }},
    {kEventGadget,      kEventGadget,      kHelpForwardButton,     [](int) { HelpButtonClicked(kHelpForwardButton); }},
};

const Route fileManagerRoutes[] = {
    {kEventSizeWindow,  kEventSizeWindow,  kAny,               [](int) { ResizeFileManager(); }},
    {kEventCloseWindow, kEventCloseWindow, kAny,               [](int) { CloseFileManager(); }},
    {kEventGadget,      kEventGadget,      kDeviceList,            [](int) { DeviceListClicked(); }},
    {kEventGadget,      kEventGadget,      kPcList,                [](int) { PcListChanged(); }},
    {kEventGadget,      kEventGadget,      kPcPathEntry,           [](int) { PathBoxChanged(); }},
};
// clang-format on

}  // namespace

void DispatchHelpWindow(int32_t event, int64_t gadget) {
    TakeRoute(helpRoutes, event, gadget);
}

void DispatchFileManagerWindow(int32_t event, int64_t gadget) {
    TakeRoute(fileManagerRoutes, event, gadget);
}

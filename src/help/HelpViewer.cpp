#include "help/HelpViewer.h"

#include <QUrl>

#include "base/AppPaths.h"
#include "base/Numbers.h"
#include "help/HelpSettings.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/WebGadget.h"
#include "ui/windows/Windows.h"

namespace {

// The web view fills the window below the row of buttons.
constexpr int kWebX = 10;
constexpr int kWebY = 40;
constexpr int kWidthBesideWeb = 20;
constexpr int kHeightBesideWeb = 50;

const char kEditorIndex[] = "html2";
const char kBasicIndex[] = "html";

// What stays as it is in an address, beside what RFC 3986 never encodes. "%" is not among them.
const char kAddressCharacters[] = "!&'()*=,/:;?#$@";

struct ButtonRow {
    int gadget;
    int x, y, width, height;
    const char* text;
    const char* tooltip;
};

// clang-format off
const ButtonRow buttonRows[] = {
    {kHelpEditorIndexButton,  10, 5, 80, 25, "KW Edit",  "View KWEdit help index"},
    {kHelpBasicIndexButton,  100, 5, 80, 25, "MM Basic", "View MMBasic syntax index"},
    {kHelpBackButton,        200, 5, 80, 25, "Back",     "Previous page"},
    {kHelpForwardButton,     300, 5, 80, 25, "Forward",  "Next page"},
};
// clang-format on

void CreateButtons() {
    for (const ButtonRow& row : buttonRows) {
        ButtonGadget(row.gadget, row.x, row.y, row.width, row.height, row.text);
        SetGadgetTooltip(row.gadget, row.tooltip);
    }
}

void OpenHelpWindow() {
    const HelpSettings& place = helpSettings;
    if (!OpenNumberedWindow(kHelpWindow, place.x, place.y, place.width, place.height, "Help Viewer",
                            kHelpWindowFlags)) {
        return;
    }
    CreateButtons();
    WebGadget(kHelpWebView, kWebX, kWebY, place.width - kWidthBesideWeb,
              place.height - kHeightBesideWeb);
    SetGadgetName(kHelpWebView, "Help page");
    CloseGadgetList();
}

void StorePlace() {
    SetHelpPlace(WindowX(kHelpWindow, WindowMeasure::kFrame),
                 WindowY(kHelpWindow, WindowMeasure::kFrame),
                 WindowWidth(kHelpWindow, WindowMeasure::kInner),
                 WindowHeight(kHelpWindow, WindowMeasure::kInner));
}

void LoadIndex(const char* folder) {
    LoadWebPage(kHelpWebView, HelpIndexAddress(folder));
}

}  // namespace

QString HelpIndexAddress(const QString& folder) {
    return QUrl::toPercentEncoding(
        "file:///" + appPaths.dataFolder + folder + appPaths.pathSeparator + "index.htm",
        kAddressCharacters);
}

void ShowHelpViewer() {
    if (!WindowIsOpen(kHelpWindow)) OpenHelpWindow();
    LoadIndex(kEditorIndex);
    ActivateNumberedWindow(kHelpWindow);
}

void ResizeHelpViewer() {
    if (!WindowIsOpen(kHelpWindow)) return;
    StorePlace();
    ResizeGadget(kHelpWebView, kWebX, kWebY, helpSettings.width - kWidthBesideWeb,
                 helpSettings.height - kHeightBesideWeb);
}

void CloseHelpViewer() {
    if (!WindowIsOpen(kHelpWindow)) return;
    StorePlace();
    CloseNumberedWindow(kHelpWindow);
}

void HelpButtonClicked(int gadget) {
    switch (gadget) {
        case kHelpEditorIndexButton:
            return LoadIndex(kEditorIndex);
        case kHelpBasicIndexButton:
            return LoadIndex(kBasicIndex);
        case kHelpBackButton:
            return WebGadgetBack(kHelpWebView);
        case kHelpForwardButton:
            return WebGadgetForward(kHelpWebView);
        default:
            return;
    }
}

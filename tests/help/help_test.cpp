// The help window with real pages in its web view, the encoding of addresses, and the
// About box's text.
#include "help/About.h"
#include "help/HelpViewer.h"
#include "tests/support/Gestures.h"
#include "tests/support/LocalTools.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "ui/gadgets/WebGadget.h"

namespace {

const bool startState = KeepStartState(PutBackHelp);

bool ShowsTitle(const char* title) {
    const QWidget* const view = WidgetOfGadget(kHelpWebView);
    return ServeUntil([=] { return view->property("title") == title; }, [](int32_t) {});
}

TEST(Help, AddressesAndAboutText) {
    ResolveAppPaths();
    EXPECT_TRUE(
        HelpIndexAddress("_!~&'()*=,-./:;?#$@a é→%20\"+[]")
            .endsWith("/data/_!~&'()*=,-./:;?#$@a%20%C3%A9%E2%86%92%2520%22%2B%5B%5D/index.htm"));
    EXPECT_TRUE(AboutText().startsWith(
        "Version: 5\nBuild date: 2022/08/12 05:47:37\rProgram folder: " + appPaths.programFolder +
        "\rData folder: " + appPaths.dataFolder + "\r"));
}

TEST(Help, TheWindowStandsWhereItWasLeft) {
    SetHelpPlace(31, 32, 640, 480);
    for (int i = 0; i < 2; ++i) ShowHelpViewer();
    CanvasGadget(kTerminalCanvas, 0, 0, 9, 9, 0);  // in no window, for the list is closed
    EXPECT_EQ(GadgetWidget(kTerminalCanvas), nullptr);
    QString told = WindowTitle(kHelpWindow) + " " + GadgetName(kHelpWebView);
    for (int gadget = kHelpWebView; gadget <= kHelpForwardButton; ++gadget) {
        told += "\n" + GadgetText(gadget) + "|" + GadgetTooltip(gadget);
        for (const auto measure : {GadgetX, GadgetY, GadgetWidth, GadgetHeight})
            told += " " + QString::number(measure(gadget));
    }
    EXPECT_EQ(told.toStdString(),
              "Help Viewer Help page\n| 10 40 620 430\nKW Edit|View KWEdit help index 10 5 80 25\n"
              "MM Basic|View MMBasic syntax index 100 5 80 25\nBack|Previous page 200 5 80 25\n"
              "Forward|Next page 300 5 80 25");
    ResizeNumberedWindow(kHelpWindow, 33, 34, 700, 500);
    ResizeHelpViewer();
    EXPECT_EQ(GadgetWidth(kHelpWebView) * 1000 + GadgetHeight(kHelpWebView), 680450);
    ResizeNumberedWindow(kHelpWindow, 35, 36, 650, 460);
    for (int i = 0; i < 2; ++i) CloseHelpViewer();
    const HelpSettings& place = helpSettings;
    EXPECT_EQ(QRect(place.x, place.y, place.width, place.height), QRect(35, 36, 650, 460));
    ResizeHelpViewer();
}

TEST(Help, PagesThroughTheirHistory) {
    const QTemporaryDir folder(QDir::tempPath() + "/hélp pages XXXXXX");
    ShowHelpViewer();
    for (const char* page : {"one", "two"}) {
        const QString path =
            ScratchFolder::Put(folder.filePath(page) + ".htm", QByteArray("<html><title>") + page);
        LoadWebPage(kHelpWebView, QUrl::fromLocalFile(path).toEncoded());
        ASSERT_TRUE(ShowsTitle(page));
    }
    for (const int button : {kHelpBackButton, kHelpForwardButton}) {
        HelpButtonClicked(button);
        EXPECT_TRUE(ShowsTitle(button == kHelpBackButton ? "one" : "two"));
    }
}

}  // namespace

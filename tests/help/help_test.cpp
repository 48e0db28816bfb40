// The help window with real pages in its web view, the encoding of addresses, and the
// About box's text.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QWidget>

#include "base/AppPaths.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "help/About.h"
#include "help/HelpSettings.h"
#include "help/HelpViewer.h"
#include "help/PercentEncoding.h"
#include "ui/Gadgets.h"
#include "ui/WaitWindowEvent.h"
#include "ui/WebGadget.h"
#include "ui/Windows.h"

namespace {

constexpr int64_t kDeadline = 30000;  // milliseconds

QString WebTitle() {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->inherits("QWebView")) return widget->property("title").toString();
    }
    return "no view";
}

bool ShowsTitle(const QString& title) {
    for (const int64_t end = NowMs() + kDeadline; WebTitle() != title; WaitForEvent(10)) {
        if (NowMs() > end) return false;
    }
    return true;
}

// Writes a page whose title is its name, and gives its encoded address.
QString MakePage(const QTemporaryDir& folder, const QString& name) {
    const QString path = folder.path() + "/h\xC3\xA9lp pages/" + name + ".htm";
    QDir().mkpath(QString(path).section('/', 0, -2));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(("<title>" + name + "</title>").toUtf8());
    return PercentEncode("file:///" + path);
}

}  // namespace

TEST(Help, PercentEncodingOfEveryByte) {
    const QString unchanged = "_!~&'()*=,-./:;?#$@";
    for (int code = 0; code < 128; ++code) {
        const QChar c(code);
        const bool passes = c.isLetterOrNumber() || unchanged.contains(c);
        const QString encoded = "%" + QString::number(code, 16).toUpper().rightJustified(2, '0');
        EXPECT_EQ(PercentEncode(c), passes ? QString(c) : encoded) << code;
    }
    EXPECT_EQ(PercentEncode("a é\xE2\x86\x92%20"), "a%20%C3%A9%E2%86%92%2520");
    EXPECT_EQ(PercentEncode(""), "");
    ResolveAppPaths();
    EXPECT_EQ(HelpIndexAddress("html2"),
              PercentEncode("file:///" + appPaths.programFolder + "data/html2/index.htm"));
}

TEST(Help, WindowAndItsGeometry) {
    CloseHelpViewer();  // with no window nothing happens
    ResizeHelpViewer();
    EXPECT_EQ(helpSettings.width, 700);
    ShowHelpViewer();
    EXPECT_EQ(WindowTitle(kHelpWindow), "Help Viewer");
    EXPECT_EQ(WindowWidth(kHelpWindow, WindowMeasure::kInner), 700);
    EXPECT_EQ(WindowHeight(kHelpWindow, WindowMeasure::kInner), 287);
    EXPECT_EQ(GadgetWidth(kHelpWebView), 680);
    EXPECT_EQ(GadgetHeight(kHelpWebView), 237);
    EXPECT_EQ(GadgetText(kHelpBasicIndexButton), "MM Basic");
    EXPECT_EQ(GadgetTooltip(kHelpForwardButton), "Next page");

    ResizeNumberedWindow(kHelpWindow, 31, 32, 500, 400);
    ResizeHelpViewer();
    EXPECT_EQ(helpSettings.width, 500);
    EXPECT_EQ(GadgetWidth(kHelpWebView), 480);
    EXPECT_EQ(GadgetHeight(kHelpWebView), 350);
    ResizeNumberedWindow(kHelpWindow, 41, 42, 510, 410);
    CloseHelpViewer();
    EXPECT_FALSE(WindowIsOpen(kHelpWindow));
    EXPECT_EQ(helpSettings.x, 41);
    EXPECT_EQ(helpSettings.y, 42);
    EXPECT_EQ(helpSettings.height, 410);
    ShowHelpViewer();
    EXPECT_EQ(GadgetHeight(kHelpWebView), 360);
}

TEST(Help, PagesThroughTheirHistory) {
    const QTemporaryDir folder;
    ShowHelpViewer();
    for (const char* page : {"one", "two"}) {
        LoadWebPage(kHelpWebView, MakePage(folder, page));
        ASSERT_TRUE(ShowsTitle(page));
    }
    HelpButtonClicked(kHelpBackButton);
    EXPECT_TRUE(ShowsTitle("one"));
    HelpButtonClicked(kHelpForwardButton);
    EXPECT_TRUE(ShowsTitle("two"));
    HelpButtonClicked(kHelpForwardButton);  // no further page
    EXPECT_EQ(WebTitle(), "two");
}

TEST(Help, AboutText) {
    ResolveAppPaths();
    const QString head =
        "Version: 5\nBuild date: 2022/08/12 05:47:37\rProgram folder: " + appPaths.programFolder +
        "\rData folder: " + appPaths.dataFolder + "\r";
    EXPECT_EQ(AboutText().left(head.size()), head);
    EXPECT_EQ(AboutText().mid(head.size()).count('\n'), 1);
}

#include "ui/InterfaceLayer.h"

#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <cstdlib>

#include "base/Numbers.h"
#include "ui/EndSignals.h"
#include "ui/WaitService.h"
#include "ui/events/BoundHandlers.h"
#include "ui/events/EventQueue.h"
#include "ui/events/InterfaceThread.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Windows.h"

namespace {

QApplication* application = nullptr;
void (*saveWork)() = nullptr;

// The toolkit gets the program's name alone: every argument is the program's own, even
// one that reads like an option of the toolkit.
int toolkitArgumentCount = 1;

// Nothing here draws by OpenGL, whose driver takes half of a start's time and of the memory.
void LeaveOutOpenGl() {
    constexpr char kChoice[] = "QT_XCB_GL_INTEGRATION";
    if (!qEnvironmentVariableIsSet(kChoice)) qputenv(kChoice, "none");
}

// From the program's own resources, in the sizes of window lists and docks.
QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 128}) {
        icon.addFile(QString(":/icons/kewlink-console-%1.png").arg(size));
    }
    return icon;
}

// A screen of twice the usual dots has everything twice as large. A factor between two whole
// ones is taken as it is: the nearest one would be far off.
void FollowScreenDensity() {
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

// The toolkit calls exit(3) when the display is gone. Threads that run still use what exit(3)
// destroys, so the process ends before that. A window that is closed has no values to save any
// more.
void EndWithoutDisplay() {
    if (!application) return;
    if (saveWork && WindowIsOpen(kMainWindow)) saveWork();
    _exit(EXIT_FAILURE);
}

void CreateApplication(char** argv) {
    LeaveOutOpenGl();
    FollowScreenDensity();
    // The end of a desktop session must not be held up by windows that do not close: the
    // program is ended like any other.
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    application = new QApplication(toolkitArgumentCount, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // By this name a Wayland desktop finds the icon; X11 is given the picture itself.
    QGuiApplication::setDesktopFileName("kewlink-console");
    QGuiApplication::setWindowIcon(ProgramIcon());
    // Every pointer move counts for a selection, those of a burst too. The platform's own
    // start turns the compression on.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
}

}  // namespace

void StartInterfaceLayer(char** argv) {
    BecomeInterfaceThread();
    CreateApplication(argv);
    std::atexit(EndWithoutDisplay);
    StartWaiting();
    SetBeforeWait(ShowNewWindows);
    StartWaitService();
    WatchEndSignals();
}

// In reverse of the start. What was freed is deleted while the toolkit still stands, and
// nothing sleeps on the queue any more when its events go.
void EndInterfaceLayer() {
    ForgetEndSignals();
    StopWaitService();
    CloseNumberedWindow(-1);
    DropMenus();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    DropAllHandlers();
    DropAllEvents();
    StopWaiting();
    delete application;
    application = nullptr;
}

void SaveAtSessionEnd(void (*save)()) {
    saveWork = save;
    QObject::connect(application, &QGuiApplication::commitDataRequest, [save] { save(); });
}

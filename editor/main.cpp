// KWEdit, the console's companion editor. Each argument is the path of a source.
#include <QApplication>

#include "editor/Editor.h"

int main(int argc, char** argv) {
    // Nothing here draws by OpenGL, whose driver takes most of a start's time.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) {
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    }
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    QApplication::setApplicationName("KWEdit");
    QApplication::setDesktopFileName("kwedit");
    Editor editor(ReadConsolePorts(QApplication::applicationDirPath() + "/data/KWCC.inf"));
    editor.OpenAll(QApplication::arguments().mid(1));
    return QApplication::exec();
}

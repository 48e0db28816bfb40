// KWEdit, the console's companion editor. Each argument is the path of a source.
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>
#include <cstdio>

#include "editor/CommandLine.h"
#include "editor/DesktopTheme.h"
#include "editor/Editor.h"
#include "editor/SecondStart.h"

namespace {

QStringList WordsOf(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) words += QString::fromLocal8Bit(argv[i]);
    return words;
}

// Beside the console's own settings, or where the desktop has them when that can't be.
QString SettingsFolder(const QString& dataFolder) {
    if (QFileInfo(dataFolder).isWritable()) return dataFolder;
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

EditorSetup SetUp() {
    const QString folder = QApplication::applicationDirPath();
    EditorSetup setup;
    setup.ports = ReadConsolePorts(folder + "/data/KWCC.inf");
    setup.consoleProgram = folder + "/KWCC";
    setup.helpFolder = folder + "/data/html";
    setup.settingsFile = SettingsFolder(folder + "/data") + "/KWEdit.ini";
    setup.dialogs = RealDialogs();
    return setup;
}

int RunEditor(QApplication& application, const QStringList& files) {
    const EditorSetup setup = SetUp();
    const QString place = MeetingPlace(QFileInfo(setup.settingsFile).path());
    if (HandOver(place, files)) return 0;
    FollowDesktopTheme(application);
    Editor editor(setup);
    SecondStart later(place, [&editor](const QStringList& paths) { editor.OpenAll(paths); });
    editor.OfferCopies();
    editor.OpenAll(files);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // Help needs no display.
    const QString answer = ReadCommandLine(WordsOf(argc, argv), KWEDIT_VERSION).answer;
    if (!answer.isEmpty()) return fputs(answer.toUtf8().constData(), stdout) < 0;
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
    QApplication::setWindowIcon(QIcon(":/icons/kewlink-console-128.png"));
    const CommandLine line = ReadCommandLine(QApplication::arguments().mid(1), KWEDIT_VERSION);
    if (!line.unknown.isEmpty()) {
        fprintf(stderr, "KWEdit: %s is no option; see --help\n", line.unknown.toUtf8().constData());
        return 2;
    }
    return RunEditor(application, line.files);
}

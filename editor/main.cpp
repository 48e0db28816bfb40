// KWEdit, the console's companion editor. Each argument is the path of a source.
#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <cstdio>

#include "companion/DesktopTheme.h"
#include "companion/ProgramStart.h"
#include "editor/CommandLine.h"
#include "editor/Editor.h"
#include "editor/SecondStart.h"

namespace {

EditorSetup SetUp() {
    EditorSetup setup;
    setup.ports = ReadConsolePorts(DataFolder() + "/KWCC.inf");
    setup.consoleProgram = QApplication::applicationDirPath() + "/KWCC";
    setup.helpFolder = DataFolder() + "/html";
    setup.settingsFile = SettingsFolder() + "/KWEdit.ini";
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
    // An empty window would lie over what was restored.
    if (!files.isEmpty() || editor.Windows().empty()) editor.OpenAll(files);
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // Help needs no display.
    const QString answer = ReadCommandLine(WordsOf(argc, argv), KWEDIT_VERSION).answer;
    if (!answer.isEmpty()) return fputs(answer.toUtf8().constData(), stdout) < 0;
    PrepareApplication();
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

// KWPlot, which plots the numbers that a board prints.
#include <QApplication>
#include <QIcon>
#include <cstdio>

#include "companion/ConsolePorts.h"
#include "companion/DesktopTheme.h"
#include "companion/ProgramStart.h"
#include "plotter/CommandLine.h"
#include "plotter/PlotWindow.h"

namespace {

int RunPlotter(QApplication& application, const PlotCommandLine& line) {
    FollowDesktopTheme(application);
    PlotSetup setup;
    setup.host = line.host.isEmpty() ? "localhost" : line.host;
    setup.port = ReadConsolePorts(DataFolder() + "/KWCC.inf").data;
    if (line.port > 0) setup.port = static_cast<quint16>(line.port);
    setup.settingsFile = SettingsFolder() + "/KWPlot.ini";
    setup.guidePage = DataFolder() + "/html2/plotter.htm";
    PlotWindow window(setup);
    if (line.file.isEmpty()) {
        window.Listen();
    } else {
        window.OpenRun(line.file);
    }
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    // Help needs no display.
    const QString answer = ReadPlotCommandLine(WordsOf(argc, argv), KWPLOT_VERSION).answer;
    if (!answer.isEmpty()) return fputs(answer.toUtf8().constData(), stdout) < 0;
    PrepareApplication();
    QApplication application(argc, argv);
    QApplication::setApplicationName("KWPlot");
    QApplication::setDesktopFileName("kwplot");
    QApplication::setWindowIcon(QIcon(":/icons/kwplot-128.png"));
    const QStringList words = QApplication::arguments().mid(1);
    const PlotCommandLine line = ReadPlotCommandLine(words, KWPLOT_VERSION);
    if (!line.trouble.isEmpty()) {
        fprintf(stderr, "KWPlot: %s\n", line.trouble.toUtf8().constData());
        return 2;
    }
    return RunPlotter(application, line);
}

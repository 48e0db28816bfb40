#include "plotter/CommandLine.h"

namespace {

const char kHelp[] =
    "usage: KWPlot [--host HOST] [--port PORT] [FILE]\n"
    "Plots the numbers that a board prints, by way of the Kewlink Console.\n"
    "  --host HOST  the machine that the console runs on; this one\n"
    "  --port PORT  the console's data port; as its settings have it, or 50900\n"
    "  --help       these lines\n"
    "  --version    the version\n"
    "With a FILE it shows a run that was recorded; \"-\" is the standard input.\n";

// The word behind an option, which may also stand behind "=".
QString ValueOf(const QStringList& words, int& i) {
    const QString& word = words[i];
    if (word.contains('=')) return word.section('=', 1);
    return i + 1 < words.size() ? words[++i] : QString();
}

void TakePort(const QString& value, PlotCommandLine& line) {
    const uint port = value.toUInt();
    if (port == 0 || port > 65535) line.trouble = "--port wants a number from 1 to 65535";
    line.port = static_cast<int>(port);
}

}  // namespace

PlotCommandLine ReadPlotCommandLine(const QStringList& words, const QString& version) {
    PlotCommandLine line;
    bool options = true;
    for (int i = 0; i < words.size(); ++i) {
        const QString option = words[i].section('=', 0, 0);
        if (!options || words[i] == "-" || !words[i].startsWith('-')) {
            if (!line.file.isEmpty()) line.trouble = "one file at a time";
            line.file = words[i];
        } else if (words[i] == "--") {
            options = false;
        } else if (option == "--help" || option == "-h") {
            line.answer = kHelp;
        } else if (option == "--version" || option == "-v") {
            line.answer = "KWPlot " + version + '\n';
        } else if (option == "--host") {
            line.host = ValueOf(words, i);
            if (line.host.isEmpty()) line.trouble = "--host wants a name or an address";
        } else if (option == "--port") {
            TakePort(ValueOf(words, i), line);
        } else {
            line.trouble = words[i] + " is no option; see --help";
        }
    }
    return line;
}

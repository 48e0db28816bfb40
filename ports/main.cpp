// kwports: lists the serial ports of this machine for whoever has a board to connect.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

#include "ports/PortAccess.h"
#include "ports/PortReport.h"

namespace {

const char kAbout[] =
    "Lists the serial ports of this machine: what each is, whether you may open it, which process\n"
    "holds it, and a device specification to paste into the console or a source.\n"
    "Exit status: 0, or 1 when there is no port, or none of a given name.";

void Tell(const SerialPort& port) {
    const QString access = AccessSentence(RightsOn(port.path));
    std::fputs(PortReport(port, access, HoldersOf(port.path)).toLocal8Bit().constData(), stdout);
}

bool TellNamed(const QString& name, const std::vector<SerialPort>& listed) {
    const SerialPort port = NamedSerialPort(name, listed);
    if (port.path.isEmpty()) {
        std::fprintf(stderr, "kwports: there is no port %s\n", name.toLocal8Bit().constData());
        return false;
    }
    Tell(port);
    return true;
}

int TellAll(const std::vector<SerialPort>& listed) {
    for (const SerialPort& port : listed) Tell(port);
    if (!listed.empty()) return 0;
    std::fputs("There is no serial port. Is the board plugged in, by a cable with data lines?\n",
               stderr);
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication program(argc, argv);
    QCoreApplication::setApplicationVersion(KWCC_VERSION);
    QCommandLineParser parser;
    parser.setApplicationDescription(kAbout);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("port", "A port to look at, such as ttyACM0; without it, all.",
                                 "[port...]");
    parser.process(program);
    const std::vector<SerialPort> listed = ListSerialPorts();
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) return TellAll(listed);
    bool found = true;
    for (const QString& name : names) found = TellNamed(name, listed) && found;
    return found ? 0 : 1;
}

#include "editor/CommandLine.h"

namespace {

const char kHelp[] =
    "usage: KWEdit [FILE...]\n"
    "Edits BASIC sources, and loads them to a board by way of the Kewlink Console.\n"
    "  --help     these lines\n"
    "  --version  the version\n"
    "A window opens for each FILE, or an empty one. An editor that is open already takes the\n"
    "files of a later start.\n";

}  // namespace

CommandLine ReadCommandLine(const QStringList& words, const QString& version) {
    CommandLine line;
    bool options = true;
    for (const QString& word : words) {
        if (!options || !word.startsWith('-')) {
            line.files += word;
        } else if (word == "--") {
            options = false;
        } else if (word == "--help" || word == "-h") {
            line.answer = kHelp;
        } else if (word == "--version" || word == "-v") {
            line.answer = "KWEdit " + version + '\n';
        } else if (line.unknown.isEmpty()) {
            line.unknown = word;
        }
    }
    return line;
}

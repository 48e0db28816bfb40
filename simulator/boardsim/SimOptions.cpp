#include "simulator/boardsim/SimOptions.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "simulator/BoardText.h"

namespace simulator {

// One row for each option; the help is printed from the same rows.

namespace {

constexpr int64_t kMaximumNumber = 1000000000;

// One row for each option. A number goes where `number` points, a text to `text`, and a
// plain option sets `flag`.
struct OptionRow {
    const char* name;
    const char* value;  // how the help names it; nullptr for a plain option
    const char* help;   // nullptr: a headline of the help, in `name`
    void (*take)(SimOptions& options, const std::string& text, int64_t number);
    bool isNumber;
    int64_t low, high;
};

using Text = const std::string&;

void TakeBoard(SimOptions& options, Text text, int64_t) {
    options.facts = FindBoardFacts(text);
    if (!options.facts)
        options.error = "There is no board \"" + text + "\"; --list-boards tells all.";
}

// CAN and NAK are meant for transfers; at the prompt they would only move the cursor.
void TakeStorm(SimOptions& options, Text text, int64_t) {
    BoardStorm& storm = options.setup.faults.storm;
    storm.inXmodemOnly = text == "can" || text == "nak";
    storm.pattern = text == "can"     ? "\x18"
                    : text == "nak"   ? "\x15"
                    : text == "flood" ? "The quick brown fox jumps over the lazy dog 0123456789\r\n"
                                      : text;
}

const OptionRow kRows[] = {
    {"The board", nullptr, nullptr, nullptr, false, 0, 0},
    {"--board", "NAME", "which board (default picomite)", TakeBoard, false, 0, 0},
    {"--list-boards", nullptr, "list the boards and end",
     [](SimOptions& o, Text, int64_t) { o.command = SimCommand::kListBoards; }, false, 0, 0},
    {"--pin", "N", "lock the console with a PIN",
     [](SimOptions& o, Text, int64_t n) { o.setup.pin = static_cast<int>(n); }, true, 0, 99999999},
    {"--baud", "N", "send no faster than a line of N bits/s (default: no limit)",
     [](SimOptions& o, Text, int64_t n) { o.setup.baud = static_cast<int>(n); }, true, 0, 10000000},
    {"--folder", "DIR", "put the files of DIR onto the board's drive",
     [](SimOptions& o, Text t, int64_t) { o.folder = t; }, false, 0, 0},
    {"--empty", nullptr, "start with an empty drive (default: a few samples)",
     [](SimOptions& o, Text, int64_t) { o.empty = true; }, false, 0, 0},
    {"--sd-card", nullptr, "a card stands in drive B:",
     [](SimOptions& o, Text, int64_t) { o.setup.sdCard = true; }, false, 0, 0},
    {"--no-rtc", nullptr, "no clock chip",
     [](SimOptions& o, Text, int64_t) { o.setup.clockChip = false; }, false, 0, 0},
    {"--already-on", nullptr, "power up at once (default: when the first host connects)",
     [](SimOptions& o, Text, int64_t) { o.alreadyOn = true; }, false, 0, 0},

    {"The line", nullptr, nullptr, nullptr, false, 0, 0},
    {"--port", "N", "TCP port (default 3001; 0 takes a free one)",
     [](SimOptions& o, Text, int64_t n) { o.port = static_cast<int>(n); }, true, 0, 65535},
    {"--listen", "ADDRESS", "IPv4 address to listen on (default 127.0.0.1)",
     [](SimOptions& o, Text t, int64_t) { o.address = t; }, false, 0, 0},
    {"--pty", nullptr, "a pseudo-terminal in place of TCP; its name is printed",
     [](SimOptions& o, Text, int64_t) { o.pty = true; }, false, 0, 0},
    {"--link", "PATH", "with --pty: a symbolic link to it, removed at the end",
     [](SimOptions& o, Text t, int64_t) { o.link = t; }, false, 0, 0},
    {"--once", nullptr, "end when the first connection ends",
     [](SimOptions& o, Text, int64_t) { o.once = true; }, false, 0, 0},

    {"Trouble, for tests (the same seed gives the same trouble)", nullptr, nullptr, nullptr, false,
     0, 0},
    {"--seed", "N", "of all that is drawn by lot (default 1)",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.seed = static_cast<uint64_t>(n); }, true,
     0, kMaximumNumber},
    {"--lose-out", "N", "N of 1000 bytes to the host are lost",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.lostOutPerMille = static_cast<int>(n); },
     true, 0, 1000},
    {"--lose-in", "N", "N of 1000 bytes from the host are lost",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.lostInPerMille = static_cast<int>(n); },
     true, 0, 1000},
    {"--garbage", "N", "N of 1000 bytes to the host are spoilt",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.garbagePerMille = static_cast<int>(n); },
     true, 0, 1000},
    {"--delay", "MS", "everything comes MS milliseconds late",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.delayMs = static_cast<int>(n); }, true, 0,
     600000},
    {"--no-echo", nullptr, "what is typed doesn't come back",
     [](SimOptions& o, Text, int64_t) { o.setup.faults.noEcho = true; }, false, 0, 0},
    {"--silent", nullptr, "the board never sends anything",
     [](SimOptions& o, Text, int64_t) { o.setup.faults.silent = true; }, false, 0, 0},
    {"--cut-after", "N", "the link is cut for good behind N bytes to the host",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.cutAfterBytes = n; }, true, 1,
     kMaximumNumber},
    {"--storm", "KIND", "can or nak: such bytes in a transfer; flood or any text: at all times",
     TakeStorm, false, 0, 0},
    {"--storm-every", "MS", "from one to the next (default 10)",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.storm.intervalMs = static_cast<int>(n); },
     true, 1, 600000},
    {"--storm-from", "MS", "begins so long after power-up (default 0)",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.storm.fromMs = n; }, true, 0,
     kMaximumNumber},
    {"--storm-for", "MS", "lasts so long (default: for ever)",
     [](SimOptions& o, Text, int64_t n) { o.setup.faults.storm.forMs = n; }, true, 0,
     kMaximumNumber},

    {"Other", nullptr, nullptr, nullptr, false, 0, 0},
    {"--help", nullptr, "show this and end",
     [](SimOptions& o, Text, int64_t) { o.command = SimCommand::kHelp; }, false, 0, 0},
};

const OptionRow* FindRow(const std::string& name) {
    for (const OptionRow& row : kRows) {
        if (row.take && name == row.name) return &row;
    }
    return nullptr;
}

// Takes "--name value" and "--name=value".
void TakeArgument(SimOptions& options, int argc, char** argv, int* i) {
    std::string name = argv[*i];
    const size_t equals = name.find('=');
    std::string value = equals == std::string::npos ? std::string() : name.substr(equals + 1);
    name.resize(std::min(name.size(), equals));
    const OptionRow* row = FindRow(name == "-h" ? "--help" : name);
    if (!row) {
        options.error = "There is no option \"" + name + "\".";
        return;
    }
    if (row->value && equals == std::string::npos) {
        if (++*i >= argc) {
            options.error = name + " needs a value: " + row->value + ".";
            return;
        }
        value = argv[*i];
    }
    int64_t number = 0;
    if (row->isNumber &&
        (!ReadInteger(value, &number) || number < row->low || number > row->high)) {
        options.error =
            BoardFormat("%s takes a number from %lld to %lld.", row->name,
                        static_cast<long long>(row->low), static_cast<long long>(row->high));
        return;
    }
    row->take(options, value, number);
}

}  // namespace

SimOptions ReadSimOptions(int argc, char** argv) {
    SimOptions options;
    options.facts = FindBoardFacts("picomite");
    for (int i = 1; i < argc && options.error.empty(); ++i) TakeArgument(options, argc, argv, &i);
    if (options.error.empty() && !options.link.empty() && !options.pty) {
        options.error = "--link goes with --pty.";
    }
    if (!options.error.empty()) options.command = SimCommand::kWrong;
    return options;
}

void PrintSimHelp() {
    std::puts(
        "boardsim: a simulated BASIC computer for the console, when no board is at hand\n"
        "\n"
        "usage: boardsim [options]\n"
        "\n"
        "It serves one host at a time, by default on TCP port 3001 of this machine:\n"
        "choose TCPIP, address localhost and port 3001 in the console and press Connect.\n"
        "It ends at Ctrl-C.");
    for (const OptionRow& row : kRows) {
        if (!row.take) {
            std::printf("\n%s\n", row.name);
            continue;
        }
        const std::string head =
            std::string(row.name) + (row.value ? " " : "") + (row.value ? row.value : "");
        std::printf("  %-18s %s\n", head.c_str(), row.help);
    }
}

void PrintBoardList() {
    for (size_t i = 0; i < BoardFactsCount(); ++i) {
        const BoardFacts& row = BoardFactsAt(i);
        std::printf("%-14s %s\n", row.name, row.title);
    }
}

}  // namespace simulator

#include "simulator/boardsim/SimOptions.h"

#include <algorithm>
#include <cstdio>
#include <variant>
#include <vector>

#include "simulator/BoardText.h"

// One row for each option; the help is printed from the same rows.

namespace simulator {
namespace {

constexpr int kMaximumNumber = 1000000000;

using Target = std::variant<std::nullptr_t, bool*, int*, std::string*>;

// Where an option's value goes: a plain option sets a bool, a number is from `low` to `high`.
struct OptionRow {
    const char* name;
    const char* value;  // how the help names it; nullptr for a plain option
    const char* help;   // nullptr: a headline of the help, in `name`
    Target target = nullptr;
    int low = 0;
    int high = kMaximumNumber;
};

// clang-format off
std::vector<OptionRow> Rows(SimOptions& o) {
    BoardFaults& faults = o.setup.faults;
    return {
        {"The board", nullptr, nullptr},
        {"--board", "NAME", "which board (default picomite)", &o.boardName},
        {"--list-boards", nullptr, "list the boards and end", &o.listBoards},
        {"--pin", "N", "lock the console with a PIN", &o.setup.pin, 0, 99999999},
        {"--folder", "DIR", "put the files of DIR onto the board's drive", &o.folder},
        {"--empty", nullptr, "start with an empty drive (default: a few samples)", &o.empty},
        {"--sd-card", nullptr, "a card stands in drive B:", &o.setup.sdCard},

        {"The line", nullptr, nullptr},
        {"--port", "N", "TCP port (default 3001; 0 takes a free one)", &o.port, 0, 65535},
        {"--pty", nullptr, "a pseudo-terminal in place of TCP; its name is printed", &o.pty},

        {"Trouble, for tests (the same seed gives the same trouble)", nullptr, nullptr},
        {"--seed", "N", "of all that is drawn by lot (default 1)", &faults.seed},
        {"--lose-out", "N", "N of 1000 bytes to the host are lost", &faults.lostOutPerMille, 0,
         1000},
        {"--lose-in", "N", "N of 1000 bytes from the host are lost", &faults.lostInPerMille, 0,
         1000},
        {"--garbage", "N", "N of 1000 bytes to the host are spoilt", &faults.garbagePerMille, 0,
         1000},
        {"--delay", "MS", "everything comes MS milliseconds late", &faults.delayMs, 0, 600000},
        {"--no-echo", nullptr, "what is typed doesn't come back", &faults.noEcho},
        {"--silent", nullptr, "the board never sends anything", &faults.silent},
        {"--cut-after", "N", "the link is cut for good behind N bytes to the host",
         &faults.cutAfterBytes, 1},
        {"--storm", "TEXT", "comes by itself, again and again", &faults.storm},
        {"--storm-every", "MS", "from one to the next (default 10)", &faults.stormIntervalMs, 1,
         600000},

        {"Other", nullptr, nullptr},
        {"--help", nullptr, "show this and end", &o.help},
        {"--version", nullptr, "show the version and end", &o.version},
    };
}
// clang-format on

// Puts the option's text where it belongs; gives the sentence of an error, or nothing.
std::string Take(const OptionRow& row, const std::string& text) {
    if (auto* const* flag = std::get_if<bool*>(&row.target)) **flag = true;
    if (auto* const* target = std::get_if<std::string*>(&row.target)) **target = text;
    auto* const* number = std::get_if<int*>(&row.target);
    if (!number) return {};
    int64_t value = 0;
    if (!ReadInteger(text, &value) || value < row.low || value > row.high) {
        return BoardFormat("%s takes a number from %d to %d.", row.name, row.low, row.high);
    }
    **number = static_cast<int>(value);
    return {};
}

// Takes "--name value" and "--name=value".
std::string TakeArgument(const std::vector<OptionRow>& rows, int argc, char** argv, int* i) {
    std::string name = argv[*i];
    const size_t equals = name.find('=');
    std::string value = equals == std::string::npos ? std::string() : name.substr(equals + 1);
    name.resize(std::min(name.size(), equals));
    if (name == "-h") name = "--help";
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const OptionRow& each) {
        return each.help && name == each.name;
    });
    if (row == rows.end()) return "There is no option \"" + name + "\".";
    if (row->value && equals == std::string::npos) {
        if (++*i >= argc) return name + " needs a value: " + row->value + ".";
        value = argv[*i];
    }
    return Take(*row, value);
}

}  // namespace

SimOptions ReadSimOptions(int argc, char** argv) {
    SimOptions options;
    const std::vector<OptionRow> rows = Rows(options);
    for (int i = 1; i < argc && options.error.empty(); ++i) {
        options.error = TakeArgument(rows, argc, argv, &i);
    }
    options.facts = FindBoardFacts(options.boardName);
    options.setup.onUsb = options.pty;
    if (options.error.empty() && !options.facts)
        options.error = "There is no board \"" + options.boardName + "\"; --list-boards tells all.";
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
    SimOptions options;
    for (const OptionRow& row : Rows(options)) {
        const std::string head =
            std::string(row.name) + (row.value ? " " : "") + (row.value ? row.value : "");
        if (row.help) {
            std::printf("  %-18s %s\n", head.c_str(), row.help);
        } else {
            std::printf("\n%s\n", row.name);
        }
    }
}

void PrintBoardList() {
    for (const BoardFacts& row : AllBoardFacts()) std::printf("%-14s %s\n", row.name, row.title);
}

}  // namespace simulator

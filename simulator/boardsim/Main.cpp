// boardsim: the simulated board as a program that serves one host at a time.
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>

#include "simulator/boardsim/DriveFiles.h"
#include "simulator/boardsim/Endpoint.h"
#include "simulator/boardsim/SimOptions.h"

namespace simulator {
namespace {

constexpr size_t kReadBlock = 4096;
constexpr size_t kWaitingLimit = 16384;  // bytes that a slow host leaves behind

int64_t ClockMs() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

struct Session {
    const SimOptions& options;
    SimulatedBoard& board;
    Endpoint& endpoint;
    std::string waiting = {};  // for the host
};

void Tell(const char* text) {
    std::printf("boardsim: %s\n", text);
    std::fflush(stdout);
}

// The board comes to life with its first host, so that its sign-on is seen.
void WelcomeHost(Session& session) {
    if (!AcceptHost(session.endpoint)) return;
    Tell("connected");
    session.board.SetListening(true);
    session.board.PowerUp(ClockMs());
}

// Output for nobody is dropped by the board from now on, as without DTR.
void LoseHost(Session& session) {
    DropHost(session.endpoint);
    session.board.SetListening(false);
    session.waiting.clear();
    Tell("disconnected");
}

void ReadHost(Session& session) {
    char block[kReadBlock];
    const size_t room = std::min(sizeof block, session.board.InputRoom());
    if (room == 0) return;
    const ssize_t count = read(session.endpoint.line, block, room);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (count <= 0) return LoseHost(session);
    session.board.Receive({block, static_cast<size_t>(count)}, ClockMs());
}

// Telnet goes out in small segments, as the firmware sends it.
void WriteHost(Session& session) {
    std::string& waiting = session.waiting;
    while (!waiting.empty() && session.endpoint.line >= 0) {
        const size_t segment = session.board.OutputSegment();
        const size_t size = segment > 0 ? std::min(waiting.size(), segment) : waiting.size();
        const ssize_t count = write(session.endpoint.line, waiting.data(), size);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
        if (count <= 0) return LoseHost(session);
        waiting.erase(0, static_cast<size_t>(count));
    }
}

// A host that doesn't read leaves the rest in the board, which then stands still.
void CollectOutput(Session& session) {
    if (session.waiting.size() >= kWaitingLimit) return;
    const std::string bytes = session.board.TakeOutput();
    if (session.endpoint.line >= 0) session.waiting += bytes;
    WriteHost(session);
}

// Milliseconds until the board wants to act; -1: only a host can wake it.
int WaitMs(const Session& session) {
    constexpr int64_t kLongest = 60000;
    // A host that takes nothing has to be waited for, not the clock.
    if (session.waiting.size() >= kWaitingLimit) return -1;
    const int64_t wake = session.board.NextWake();
    if (wake == kNeverMs) return -1;
    return static_cast<int>(std::clamp<int64_t>(wake - ClockMs(), 0, kLongest));
}

// Sleeps until a host or the board's time comes.
void WaitAndServe(Session& session) {
    Endpoint& endpoint = session.endpoint;
    const bool busy = endpoint.line >= 0;
    // A board that is away takes no host; one that comes waits until it is back.
    const bool away = !session.board.LinkIsUp();
    pollfd watched = {busy ? endpoint.line : away ? -1 : endpoint.listener, POLLIN, 0};
    if (busy && session.board.InputRoom() == 0) watched.events = 0;
    if (!session.waiting.empty()) watched.events |= POLLOUT;
    if (poll(&watched, 1, WaitMs(session)) <= 0) return;
    if (!busy) return WelcomeHost(session);
    if (watched.revents & POLLOUT) WriteHost(session);
    if (watched.revents & (POLLIN | POLLHUP | POLLERR)) ReadHost(session);
}

// A board that leaves the bus, or a link that is cut, hangs up on a TCP host.
void HangUpIfGone(Session& session) {
    if (session.options.pty || session.endpoint.line < 0 || session.board.LinkIsUp()) return;
    LoseHost(session);
}

// One turn for each thing that happens: the board's time, bytes, a host that comes or goes.
[[noreturn]] void Serve(Session& session) {
    while (true) {
        session.board.Advance(ClockMs());
        CollectOutput(session);
        HangUpIfGone(session);
        WaitAndServe(session);
    }
}

// Gives the exit status of a failure; a board that runs ends by a signal.
int RunBoard(const SimOptions& options) {
    std::signal(SIGPIPE, SIG_IGN);
    Endpoint endpoint;
    if (!OpenEndpoint(options, &endpoint)) return 1;
    SimulatedBoard board(*options.facts, options.setup);
    if (!options.folder.empty() && !AddFolder(board, options.folder)) {
        std::fprintf(stderr, "boardsim: can't read the folder %s\n", options.folder.c_str());
        return 1;
    }
    if (options.folder.empty() && !options.empty) AddSampleFiles(board);
    Tell(endpoint.place.c_str());
    Tell(options.facts->title);
    board.SetListening(options.pty);
    if (options.pty) board.PowerUp(ClockMs());
    Session session{options, board, endpoint};
    Serve(session);
}

}  // namespace

}  // namespace simulator

int main(int argc, char** argv) {
    using namespace simulator;
    const SimOptions options = ReadSimOptions(argc, argv);
    if (!options.error.empty()) {
        std::fprintf(stderr, "boardsim: %s\nboardsim --help tells all options.\n",
                     options.error.c_str());
        return 2;
    }
    if (options.help) PrintSimHelp();
    if (options.listBoards) PrintBoardList();
    if (options.version) std::puts("boardsim " KWCC_VERSION);
    return options.help || options.listBoards || options.version ? 0 : RunBoard(options);
}

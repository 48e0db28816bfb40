#include "tests/support/BoardOnLine.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

BoardOnLine::BoardOnLine(const char* family, VirtualClock& virtualClock,
                         const simulator::BoardSetup& setup)
    : board(std::make_unique<simulator::SimulatedBoard>(*simulator::FindBoardFacts(family), setup)),
      clock(virtualClock),
      before(virtualClock.onTick) {
    int ends[2] = {-1, -1};
    socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
    nearEnd = ends[0];
    farEnd = ends[1];
    for (const int fd : ends) fcntl(fd, F_SETFL, O_NONBLOCK);
    board->SetListening(false);
    board->PowerUp(clock.Now());
    board->SetListening(true);
    clock.onTick = [this](int64_t now) { Tick(now); };
}

BoardOnLine::~BoardOnLine() {
    clock.onTick = before;
    close(farEnd);
    if (nearEnd >= 0) close(nearEnd);
}

int BoardOnLine::TakeNearEnd() {
    const int fd = nearEnd;
    nearEnd = -1;
    return fd;
}

void BoardOnLine::Tick(int64_t now) {
    if (before) before(now);
    char block[4096];
    ssize_t count;
    while ((count = read(farEnd, block, sizeof block)) > 0) {
        received.append(block, static_cast<size_t>(count));
        board->Receive({block, static_cast<size_t>(count)}, now);
    }
    board->Advance(now);
    const std::string output = board->TakeOutput();
    sent += output;
    waiting += output;
    if (waiting.empty() || now % msPerByte != 0) return;
    const size_t most = msPerByte > 1 ? 1 : waiting.size();
    count = send(farEnd, waiting.data(), most, MSG_NOSIGNAL);
    if (count > 0) waiting.erase(0, static_cast<size_t>(count));
}

// A simulated board at the far end of the program's link, on the virtual clock: each
// millisecond it reads, acts and writes.
#pragma once

#include "simulator/SimulatedBoard.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"

class BoardOnLine {
  public:
    // `family` is a name of the table of boards ("picomite", "cmm2", ...). The board is
    // powered at once and its sign-on is dropped, as on a port that is opened later. Takes
    // clock.onTick; what stood there is called first from then on.
    BoardOnLine(const char* family, VirtualClock& virtualClock,
                const simulator::BoardSetup& setup = simulator::BoardSetup())
        : board(*simulator::FindBoardFacts(family), setup),
          clock(virtualClock),
          before(virtualClock.onTick) {
        board.PowerUp(clock.Now());
        board.TakeOutput();
        clock.onTick = [this](int64_t now) { Tick(now); };
    }
    ~BoardOnLine() { clock.onTick = before; }
    BoardOnLine(const BoardOnLine&) = delete;
    BoardOnLine& operator=(const BoardOnLine&) = delete;

    simulator::SimulatedBoard& Board() { return board; }

    // All that the board has been sent.
    const std::string& Received() const { return received; }

    // All that it has sent.
    const std::string& Sent() const { return sent; }

    // From here on what the board sends comes one byte in so many milliseconds.
    void SlowDown(int milliseconds) { msPerByte = milliseconds; }

  private:
    void Tick(int64_t now) {
        if (before) before(now);
        const std::string came = line.Read();
        received += came;
        board.Receive(came, now);
        board.Advance(now);
        const std::string output = board.TakeOutput();
        sent += output;
        waiting += output;
        if (now % msPerByte != 0) return;
        waiting.erase(0, line.Write(waiting.substr(0, msPerByte > 1 ? 1 : waiting.size())));
    }

    simulator::SimulatedBoard board;
    FarEnd line{true};
    VirtualClock& clock;
    std::function<void(int64_t now)> before;  // of the clock's earlier owner
    int msPerByte = 1;                        // 1 for all at once
    std::string received, sent;
    std::string waiting;  // that the link didn't take yet
};

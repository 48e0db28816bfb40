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
    // clock.onTick.
    BoardOnLine(const char* family, VirtualClock& virtualClock,
                const simulator::BoardSetup& setup = {})
        : board(*simulator::FindBoardFacts(family), setup), clock(virtualClock) {
        board.PowerUp(clock.Now());
        board.TakeOutput();
        clock.onTick = [this](int64_t now) { Tick(now); };
    }
    ~BoardOnLine() { clock.onTick = nullptr; }

    simulator::SimulatedBoard& Board() { return board; }

    // All that the board has been sent, and all that it has sent.
    const std::string& Received() const { return received; }
    const std::string& Sent() const { return sent; }

    // From here on what the board sends comes one byte in so many milliseconds.
    void SlowDown(int milliseconds) { msPerByte = milliseconds; }

  private:
    void Tick(int64_t now) {
        const std::string came = line.Read();
        received += came;
        board.Receive(came, now);
        board.Advance(now);
        sent += board.TakeOutput();
        if (now % msPerByte != 0) return;
        arrived += line.Write(sent.substr(arrived, msPerByte > 1 ? 1 : sent.size()));
    }

    simulator::SimulatedBoard board;
    FarEnd line{true};
    VirtualClock& clock;
    int msPerByte = 1;  // 1 for all at once
    std::string received, sent;
    size_t arrived = 0;  // of the bytes sent; the link didn't take the rest yet
};

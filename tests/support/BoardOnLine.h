// A simulated board at one end of a socket pair, on the virtual clock: whoever holds the
// other descriptor talks to it as through a serial port or a TCP connection. Each
// millisecond of the clock the board reads, acts and writes.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "simulator/SimulatedBoard.h"
#include "tests/support/VirtualClock.h"

class BoardOnLine {
  public:
    // `family` is a name of the table of boards ("picomite", "cmm2", ...). The board is
    // powered at once and its sign-on is dropped, as on a port that is opened later. Takes
    // clock.onTick; what stood there is called first from then on.
    BoardOnLine(const char* family, VirtualClock& clock,
                const simulator::BoardSetup& setup = simulator::BoardSetup());
    ~BoardOnLine();
    BoardOnLine(const BoardOnLine&) = delete;
    BoardOnLine& operator=(const BoardOnLine&) = delete;

    // The caller's end, non-blocking. The first call hands it over: the caller closes it.
    // -1 afterwards.
    int TakeNearEnd();

    simulator::SimulatedBoard& Board() { return *board; }

    // All that the board has been sent.
    const std::string& Received() const { return received; }

    // All that it has sent.
    const std::string& Sent() const { return sent; }

    // From here on what the board sends comes one byte in so many milliseconds.
    void SlowDown(int milliseconds) { msPerByte = milliseconds; }

  private:
    void Tick(int64_t now);

    std::unique_ptr<simulator::SimulatedBoard> board;
    VirtualClock& clock;
    std::function<void(int64_t now)> before;  // of the clock's earlier owner
    int msPerByte = 1;                        // 1 for all at once
    int nearEnd = -1;
    int farEnd = -1;
    std::string received;
    std::string sent;
    std::string waiting;  // that the socket didn't take yet
};

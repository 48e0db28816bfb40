// A small BASIC computer as seen through its console: bytes and time in, bytes out. It has
// no thread, no socket and no clock of its own, so a driver may step it on the real clock
// or on a virtual one. Everything that happens depends on the bytes, the times and the
// seed alone.
//
// A driver calls Receive for what arrives, Advance when NextWake has come, and TakeOutput
// after each. Times are milliseconds of any monotonic clock; they never go back.
// Not for use by two threads at once. A hostile stream can neither hang it nor make it
// grow: every queue, store and depth has a bound.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/BoardFacts.h"

namespace simulator {

// Steps of one call of Advance; what is left of a longer stretch of time passes at once.
constexpr int kMaximumStepsPerAdvance = 20000;

constexpr int64_t kNeverMs = std::numeric_limits<int64_t>::max();

// Troubles that a board can be asked for. All are drawn from the seed, so a run can be
// repeated. The zero of each field means that the trouble is absent.
struct BoardFaults {
    int seed = 1;
    int lostOutPerMille = 0;   // output bytes that vanish, of 1000
    int lostInPerMille = 0;    // input bytes that vanish
    int garbagePerMille = 0;   // output bytes that change
    int delayMs = 0;           // every output byte comes this much later
    bool noEcho = false;       // typed characters don't come back
    bool silent = false;       // nothing is ever sent
    int cutAfterBytes = 0;     // the link is cut when so many bytes were sent
    std::string storm;         // comes by itself, whole each time
    int stormIntervalMs = 10;  // from one to the next, at least 1
};

// What may be chosen for one board beyond its row of facts.
struct BoardSetup {
    int pin = 0;          // 0: none, else the PIN that locks the console
    bool onUsb = false;   // the host is on USB, also where telnet is usual
    bool sdCard = false;  // a card stands in drive B:
    BoardFaults faults;
};

class SimulatedBoard {
  public:
    explicit SimulatedBoard(const BoardFacts& facts, const BoardSetup& setup = BoardSetup());
    ~SimulatedBoard();
    SimulatedBoard(const SimulatedBoard&) = delete;
    SimulatedBoard& operator=(const SimulatedBoard&) = delete;

    // Switches the power on: sign-on and prompt. Until then nothing is read or sent; later
    // calls do nothing.
    void PowerUp(int64_t nowMs);

    // Bytes from the host, as one TCP segment to a telnet board. Those that find no room go
    // the way of the board's kind.
    void Receive(std::string_view bytes, int64_t nowMs);

    // How many bytes a host may send before the board would make it wait.
    size_t InputRoom() const;

    // Lets time pass up to nowMs.
    void Advance(int64_t nowMs);

    // What the board has sent by the time of the last call. Empty for nothing.
    std::string TakeOutput();

    // So many bytes of it go into one TCP segment; 0: as many as there are.
    size_t OutputSegment() const;

    // When Advance is wanted next; kNeverMs while the board only waits for bytes.
    int64_t NextWake() const;

    // Does the board stand on the line? Not while it restarts, nor after a cut.
    bool LinkIsUp() const;

    // Does a host listen (DTR, or a TCP connection)? What a board prints with nobody listening
    // is lost. A telnet board greets each host that comes.
    void SetListening(bool listening);

    // Puts a file on a drive, with its folders: "games/x.bas" or "B:/x.bas". `stamp` is
    // seconds since 1970 in local civil time, 0 for none. False if it doesn't fit.
    bool AddFile(std::string_view path, std::string_view data, int64_t stamp);

    // The file's bytes through *data; false if there is none.
    bool ReadFile(std::string_view path, std::string* data) const;

    // The text in program memory, lines ended by LF.
    std::string ProgramText() const;

  private:
    std::unique_ptr<struct Board> board;
};

}  // namespace simulator

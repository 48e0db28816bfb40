#include "simulator/FlashSlots.h"

#include "simulator/Board.h"
#include "simulator/Listings.h"
#include "simulator/basic/BasicCommands.h"

namespace simulator {

// Success prints nothing, and the work takes a second or more.

namespace {

// nullptr with the firmware's words for a number that is no slot's.
FlashSlot* TakeSlot(Board& board) {
    const int number = TakeInteger(board, 1, static_cast<int>(board.flash.size()));
    if (board.basic.failed) return nullptr;
    return &board.flash[static_cast<size_t>(number - 1)];
}

// Flash work takes its time; what is typed meanwhile waits.
void WorkThen(Board& board, void (*then)(Board& board)) {
    BusyThen(board, board.facts.flash.slotMs, then);
}

// The first line is quoted as it stands: quotes inside it are not marked.
std::string SlotLine(size_t number, const FlashSlot& slot) {
    if (!slot.used) return BoardFormat(" Slot %zu available\r\n", number);
    if (slot.lines.empty()) return BoardFormat(" Slot %zu in use\r\n", number);
    return BoardFormat(" Slot %zu in use: \"", number) + RecasedLine(slot.lines[0]) + "\"\r\n";
}

// With a number the program of that slot is listed.
void ListSlots(Board& board) {
    if (!AtStatementEnd(board)) {
        const FlashSlot* slot = TakeSlot(board);
        const bool all = TakeChar(board, ',') && TakeKeyword(board, "ALL");
        if (slot) ListLines(board, slot->lines, !all);
        return;
    }
    for (size_t i = 0; i < board.flash.size(); ++i) Put(board, SlotLine(i + 1, board.flash[i]));
}

// SAVE spares a used slot, OVERWRITE doesn't ask.
void StoreInSlot(Board& board, bool overwrites) {
    FlashSlot* slot = TakeSlot(board);
    if (!slot) return;
    if (slot->used && !overwrites) return Refuse(board, "Already programmed");
    *slot = {true, board.program.lines};
    WorkThen(board, ResumeBasic);
}

void EraseSlots(Board& board) {
    if (TakeKeyword(board, "ALL")) {
        board.flash = FlashSlots();
    } else if (FlashSlot* slot = TakeSlot(board)) {
        *slot = FlashSlot();
    }
    if (!board.basic.failed) WorkThen(board, ResumeBasic);
}

// The line that was typed ends here: the program under it has changed.
void FetchSlot(Board& board, void (*then)(Board& board)) {
    const FlashSlot* slot = TakeSlot(board);
    if (!slot) return;
    if (!slot->used) return Refuse(board, "Flash slot empty");
    board.program.lines = slot->lines;
    WorkThen(board, then);
}

struct FlashRow {
    const char* word;
    void (*run)(Board& board);
};

const FlashRow kFlashRows[] = {
    {"LIST", ListSlots},
    {"SAVE", [](Board& board) { StoreInSlot(board, false); }},
    {"OVERWRITE", [](Board& board) { StoreInSlot(board, true); }},
    {"ERASE", EraseSlots},
    {"LOAD", [](Board& board) { FetchSlot(board, ReturnToPrompt); }},
    {"RUN", [](Board& board) { FetchSlot(board, RunProgram); }},
};

}  // namespace

void RunFlash(Board& board) {
    for (const FlashRow& row : kFlashRows) {
        if (TakeKeyword(board, row.word)) return row.run(board);
    }
    if (!RefuseAbsent(board, TakeWord(board))) Fail(board, "Syntax");
}

}  // namespace simulator

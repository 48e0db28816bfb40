#include "simulator/FlashSlots.h"

#include "simulator/Board.h"
#include "simulator/ListCommand.h"
#include "simulator/basic/BasicCommands.h"

namespace simulator {

// Success prints nothing, and the work takes a second or more.

namespace {

// nullptr with the firmware's words for a number that is no slot's.
FlashSlot* TakeSlot(Board& board) {
    const int number = TakeInteger(board, 1, kFlashSlots);
    if (board.basic.failed) return nullptr;
    return &board.flash.slots[static_cast<size_t>(number - 1)];
}

// Flash work takes its time; what is typed meanwhile waits.
void WorkThen(Board& board, void (*then)(Board& board)) {
    BusyThen(board, board.facts.flash.slotMs, then);
}

// The first line is quoted as it stands: quotes inside it are not marked.
std::string SlotLine(int number, const FlashSlot& slot) {
    if (!slot.used) return BoardFormat(" Slot %d available", number);
    if (slot.lines.empty()) return BoardFormat(" Slot %d in use", number);
    return BoardFormat(" Slot %d in use: \"", number) + RecasedLine(slot.lines[0]) + "\"";
}

// With a number the program of that slot is listed.
void ListSlots(Board& board) {
    if (!AtStatementEnd(board)) {
        const FlashSlot* slot = TakeSlot(board);
        const bool all = TakeChar(board, ',') && TakeKeyword(board, "ALL");
        if (slot) ListLines(board, slot->lines, !all);
        return;
    }
    for (int i = 0; i < kFlashSlots; ++i) {
        Put(board, SlotLine(i + 1, board.flash.slots[static_cast<size_t>(i)]));
        NewLine(board);
    }
}

void StoreInSlot(Board& board, FlashSlot* slot) {
    *slot = {true, board.program.lines};
    WorkThen(board, ResumeBasic);
}

// SAVE spares a used slot, OVERWRITE doesn't ask.
void SaveToSlot(Board& board) {
    FlashSlot* slot = TakeSlot(board);
    if (!slot) return;
    if (slot->used) return Refuse(board, "Already programmed");
    StoreInSlot(board, slot);
}

void OverwriteSlot(Board& board) {
    if (FlashSlot* slot = TakeSlot(board)) StoreInSlot(board, slot);
}

void EraseSlots(Board& board) {
    if (TakeKeyword(board, "ALL")) {
        board.flash = FlashSlots();
    } else if (FlashSlot* slot = TakeSlot(board)) {
        *slot = FlashSlot();
    } else {
        return;
    }
    WorkThen(board, ResumeBasic);
}

bool FetchSlot(Board& board) {
    const FlashSlot* slot = TakeSlot(board);
    if (!slot) return false;
    if (!slot->used) return Fail(board, "Flash slot empty");
    board.program.lines = slot->lines;
    BuildLabels(board);
    return true;
}

// The line that was typed ends here: the program under it has changed.
void LoadSlot(Board& board) {
    if (FetchSlot(board)) WorkThen(board, ReturnToPrompt);
}

void RunSlot(Board& board) {
    if (FetchSlot(board)) WorkThen(board, RunProgram);
}

void ChainSlot(Board& board) {
    if (FetchSlot(board)) WorkThen(board, ChainProgram);
}

struct FlashRow {
    const char* word;
    void (*run)(Board& board);
};

const FlashRow kFlashRows[] = {
    {"LIST", ListSlots}, {"SAVE", SaveToSlot}, {"OVERWRITE", OverwriteSlot}, {"ERASE", EraseSlots},
    {"LOAD", LoadSlot},  {"RUN", RunSlot},     {"CHAIN", ChainSlot},
};

}  // namespace

void RunFlash(Board& board) {
    for (const FlashRow& row : kFlashRows) {
        if (!TakeKeyword(board, row.word)) continue;
        row.run(board);
        return;
    }
    Fail(board, "Syntax");
}

}  // namespace simulator

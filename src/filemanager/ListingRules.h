// How a line that the device printed in answer to its list command is sorted. There is no
// protocol: the text is what a person would see, with echoes, prompts, escape sequences
// and summary lines in it. The rules stand in one ordered table and the first that fits
// decides. Pure.
#pragma once

#include <QString>

#include "upload/DeviceFamily.h"

enum class ListingAction {
    kNone,         // a partial line: it waits for its rest
    kIgnore,       // an echo, or nothing that belongs to a list
    kGoOn,         // the device waits for a key between two pages
    kEmptyBuffer,  // forget what has come so far
    kPrint,        // an error: show it in the terminal
    kAwaitEnd,     // the summary line; the prompt behind it ends the listing
    kEnd,          // the prompt
    kCapture,      // a line of the program that is being saved
    kAddEntry,     // a row of the list
};

struct ListingLine {
    QString text;           // trimmed when complete
    bool complete = false;  // it ended in a line end
};

// What to do with a line; an empty one is ignored. Matches go without regard to case but
// where the table says otherwise.
ListingAction SortListingLine(const ListingLine& line, const DeviceFamily& family,
                              bool savingProgram);

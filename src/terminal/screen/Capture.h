// The record of what reaches TerminalFeed, and the watch for the end of a listing.
#pragma once

#include <QString>

constexpr int kListingIdle = 0;
constexpr int kListingWaiting = 1;   // for the prompt
constexpr int kListingComplete = 2;  // not yet handed over

// Beyond this many code units, two bytes each, what arrives is not recorded any more:
// half a day of a line at 115,200 baud that is never silent.
constexpr int kLongestCapture = 512 * 1024 * 1024;

struct Capture {
    bool on = false;  // TerminalFeed appends what it is given to `buffer`
    QString buffer;   // raw received text, sequences and line ends as they came
    int listingState = kListingIdle;
};

extern const Capture& capture;

// Empties the buffer and turns capture on.
void StartCapture();
// Turns capture off; the buffer stays.
void StopCapture();
// The buffer, emptied by the call.
QString TakeCapture();
// Appends while capture is on, then watches the buffer's last four characters for the
// prompt while a listing is awaited. TerminalFeed's first two steps.
void CaptureText(const QString& text);
void SetListingState(int state);

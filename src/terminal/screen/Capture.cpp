#include "terminal/screen/Capture.h"

#include <utility>

namespace {

constexpr int kPromptReach = 4;  // characters at the end of the buffer that may hold the prompt

Capture record;

}  // namespace

const Capture& capture = record;

void StartCapture() {
    record.buffer.clear();
    record.on = true;
}

void StopCapture() {
    record.on = false;
}

QString TakeCapture() {
    return std::exchange(record.buffer, QString());
}

void CaptureText(const QString& text) {
    if (record.on && record.buffer.size() <= kLongestCapture - text.size()) {
        record.buffer += text;
    }
    if (record.listingState != kListingWaiting) return;
    if (record.buffer.right(kPromptReach).contains('>')) record.listingState = kListingComplete;
}

void SetListingState(int state) {
    record.listingState = state;
}

#include "link/SendListing.h"

#include <QString>

#include "base/LineEnding.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/LocalCommand.h"
#include "terminal/screen/Capture.h"
#include "ui/windows/Clipboard.h"

namespace {

// The echoed "LIST ALL" and the first character of its line end.
constexpr int kEchoedCharacters = 9;

QString WithoutEcho(const QString& captured) {
    QString listing = captured.mid(kEchoedCharacters);
    // One character at the most: what is left of the echo's line end.
    if (listing.startsWith('\r') || listing.startsWith('\n')) listing.remove(0, 1);
    return listing;
}

}  // namespace

void RequestListing() {
    SendText("LIST ALL" + lineEnding.bytes);
    StartCapture();
    SetListingState(kListingWaiting);
}

// Capture stays on, and the listing stays in it. An editor that does not run is passed over:
// the listing is on the clipboard.
void FinishSendListing() {
    if (capture.listingState != kListingComplete) return;
    SetListingState(kListingIdle);
    const QString listing = WithoutEcho(TakeCapture());
    CaptureText(listing);
    SetClipboardText(listing);
    SendLocalCommand(linkSettings.editorPort, "/paste \r");
}

#include "link/SendListing.h"

#include <QString>

#include "base/Pacing.h"
#include "link/LinkSettings.h"
#include "link/TcpClient.h"
#include "terminal/screen/Capture.h"
#include "ui/DragDrop.h"

namespace {

// The echoed "LIST ALL" and the first character of its line end.
constexpr int kEchoedCharacters = 9;
constexpr int64_t kPauseBeforeClosing = 20;  // milliseconds
const char kPasteCommand[] = "/paste \r";

QString WithoutEcho(const QString& captured) {
    QString listing = captured.mid(kEchoedCharacters);
    // One character at the most: what is left of the echo's line end.
    if (listing.startsWith('\r') || listing.startsWith('\n')) listing.remove(0, 1);
    return listing;
}

// An editor that does not run is passed over: the listing stays on the clipboard.
void TellEditor() {
    const int fd = ConnectTcpClient("localhost", linkSettings.editorPort);
    if (fd < 1) return;
    SendTcpBytes(fd, kPasteCommand, sizeof kPasteCommand - 1);
    SleepMs(kPauseBeforeClosing);
    CloseTcpClient(fd);
}

}  // namespace

// Capture stays on, and the listing stays in it.
void FinishSendListing() {
    SetListingState(kListingIdle);
    const QString listing = WithoutEcho(TakeCapture());
    CaptureText(listing);
    SetClipboardText(listing);
    TellEditor();
}

#include "upload/PinDialogue.h"

#include "base/LineEnding.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/windows/Dialogs.h"

namespace {

constexpr int kPinTries = 20;

const QString kPinQuestion = "Enter PIN or 0 to restart:";

int64_t PinWaitMs() {
    return int64_t{linkSettings.lineDelay} * 3;
}

// A board is silent for seconds before it answers. The prompt is looked for first: it
// wins when the text holds both.
bool AwaitPinVerdict(QString reply) {
    for (int i = 0; i < kPinTries; ++i) {
        if (reply.contains('>')) return true;
        if (reply.contains("PIN")) return false;
        reply += SendAndWait(QString(), PinWaitMs());
    }
    return false;
}

bool SendPin(const QString& pin) {
    TerminalPrintLine("Sending PIN");
    const bool accepted = AwaitPinVerdict(SendAndWait(pin + lineEnding.bytes, PinWaitMs()));
    TerminalPrintLine(accepted ? "PIN accepted" : "Wrong PIN");
    return accepted;
}

}  // namespace

bool PassPinDialogue(const QString& reply) {
    // Not the PIN but a go signal, until the board asks: when it is empty the upload stops.
    QString pin = "no";
    if (reply.contains(kPinQuestion, Qt::CaseInsensitive)) {
        pin = AskText("PIN required!", "Enter security PIN", QString());
        if (!pin.isEmpty() && !SendPin(pin)) pin.clear();
    }
    if (!pin.isEmpty()) return true;
    TerminalPrintLine("Aborting upload");
    return false;
}

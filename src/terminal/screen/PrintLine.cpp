// One line for the user, from whatever thread. Lines of other threads wait here, each with
// one posted event, so that they are printed in order with that thread's other events.
#include <QString>
#include <deque>
#include <mutex>
#include <utility>

#include "base/Numbers.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtParser.h"
#include "ui/events/EventQueue.h"
#include "ui/events/InterfaceThread.h"

namespace {

struct HandedLines {
    std::mutex mutex;
    std::deque<QString> lines;
};

HandedLines handed;

// The event is posted under the lock, so the lines stand in the order of their events.
void HandLine(const QString& text) {
    const std::lock_guard<std::mutex> lock(handed.mutex);
    if (handed.lines.size() >= kMostHandedLines) return;
    handed.lines.push_back(text);
    PostInterfaceEvent(kEventPrintLine, kMainWindow, kNone, 0);
}

bool TakeLine(QString* text) {
    const std::lock_guard<std::mutex> lock(handed.mutex);
    if (handed.lines.empty()) return false;
    *text = std::move(handed.lines.front());
    handed.lines.pop_front();
    return true;
}

}  // namespace

void TerminalPrintLine(const QString& text) {
    if (!OnInterfaceThread()) return HandLine(text);
    TerminalFeed(text);
    if (terminalScreen.cursorY >= terminalScreen.rows) {
        TerminalScrollUp(1);
        MoveTerminalCursor(1, terminalScreen.rows);
    } else {
        MoveTerminalCursor(1, terminalScreen.cursorY + 1);
    }
}

void PrintHandedLines() {
    QString text;
    if (TakeLine(&text)) TerminalPrintLine(text);
}

void PrintAllHandedLines() {
    for (QString text; TakeLine(&text);) TerminalPrintLine(text);
}

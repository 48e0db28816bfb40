#include "terminal/input/Paste.h"

#include <QString>

#include "base/LineEnding.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/LinkPrimitives.h"
#include "ui/windows/Clipboard.h"

// The trim takes the indentation of pasted source away; that is meant. No reply is
// awaited: the delay is the only pacing.
void PasteClipboard(int delay) {
    QString text = ClipboardText();
    if (text.isEmpty()) return;
    text.replace("\r\n", "\n");
    if (!text.endsWith('\n')) text += '\n';
    int start = 0;
    for (int end = text.indexOf('\n'); end >= 0 && !LeaveRequested();
         end = text.indexOf('\n', start)) {
        SendText(TrimBlanks(text.mid(start, end - start)) + lineEnding.bytes);
        if (delay) SleepMs(delay);
        start = end + 1;
    }
}

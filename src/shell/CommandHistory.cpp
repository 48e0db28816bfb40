#include "shell/CommandHistory.h"

#include <algorithm>

#include "base/Numbers.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "ui/gadgets/Gadgets.h"

namespace {

std::vector<QString> commands;
int position = 0;

int Size() {
    return static_cast<int>(commands.size());
}

void ShowCommand() {
    SetGadgetText(kCommandEntry, commands[static_cast<size_t>(position)]);
}

// A text that stands in the list already moves to its end.
void Remember(const QString& text) {
    const auto found = std::find(commands.begin(), commands.end(), text);
    if (found != commands.end()) commands.erase(found);
    if (text.isEmpty()) return;
    commands.push_back(text);
    if (Size() > kMostHistory) commands.erase(commands.begin());
    position = Size();
}

}  // namespace

const std::vector<QString>& historyList = commands;
const int& historyIndex = position;

void SetHistory(const std::vector<QString>& stored) {
    commands = stored;
    position = Size();
}

void HistoryPrevious() {
    if (commands.empty()) return;
    position = std::max(std::min(position, Size()) - 1, 0);
    ShowCommand();
}

void HistoryNext() {
    if (commands.empty()) return;
    if (Size() > position) ++position;
    if (Size() > position) {
        ShowCommand();
    } else {
        SetGadgetText(kCommandEntry, QString());
    }
}

void SubmitCommandBar(bool appendCr) {
    const QString text = GadgetText(kCommandEntry).remove('\r').remove('\n');
    Remember(text);
    if (ConnectDevice() != 0) SendText(appendCr ? text + "\r" : text);
    SetGadgetText(kCommandEntry, QString());
}

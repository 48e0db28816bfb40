// The command bar and what was typed there. Interface thread.
#pragma once

#include <QString>
#include <vector>

constexpr int kMostHistory = 30;  // commands; a settings file may bring one more

// Commands, oldest first. What is submitted stands in it once.
extern const std::vector<QString>& historyList;
// Position in the list, from 0; the list's size after a submission.
extern const int& historyIndex;

// For the settings file: the list as it was stored, with the position behind its end.
void SetHistory(const std::vector<QString>& commands);

// The command before or behind the one that gadget 53 shows. There is no wrap: before the
// oldest stands the oldest, behind the newest an empty line.
void HistoryPrevious();
void HistoryNext();

// Takes the line out of gadget 53 into the history, connects, and sends it as it stands
// or with a CR behind it.
void SubmitCommandBar(bool appendCr);

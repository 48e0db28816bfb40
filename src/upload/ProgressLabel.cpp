#include "upload/ProgressLabel.h"

#include "base/Numbers.h"
#include "ui/gadgets/Gadgets.h"

namespace {

constexpr int kLinesPerStep = 10;

}  // namespace

void ShowProgressLabel() {
    HideGadget(kProgressText, false);
    HideGadget(kSaveMacroButton, true);
}

void HideProgressLabel() {
    SetGadgetText(kProgressText, QString());
    HideGadget(kProgressText, true);
    HideGadget(kSaveMacroButton, false);
}

void StartProgress(int lines) {
    SetGadgetText(kProgressText, " 1/" + QString::number(lines));
}

void StepProgress(int line, int lines) {
    if (line % kLinesPerStep != 0) return;
    SetGadgetText(kProgressText, QString::number(line) + "/" + QString::number(lines));
}

// The label that counts the lines of an upload. It takes the place of the macro "Save"
// button, which is hidden meanwhile. Interface thread.
#pragma once

void ShowProgressLabel();
// Empties and hides the label and brings the button back.
void HideProgressLabel();
// " 1/" and the number of lines.
void StartProgress(int lines);
// Line `line`, counted from 1, is done: every tenth is shown, without the leading blank.
void StepProgress(int line, int lines);

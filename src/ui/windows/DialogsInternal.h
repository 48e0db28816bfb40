// The answers that stand in place of dialogs, for the files that show dialogs.
#pragma once

struct DialogAnswers;

// Those of a test, or a Cancel for each while the program is about to end. Null while real
// dialogs are to open.
const DialogAnswers* AnswersInPlace();

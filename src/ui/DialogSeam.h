// The answers that tests put in place of dialogs, for the files that show dialogs.
#pragma once

struct DialogAnswers;

// Null while real dialogs are to open.
const DialogAnswers* AnswersInPlace();

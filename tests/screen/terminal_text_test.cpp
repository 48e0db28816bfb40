// The terminal's text, and the files that it is saved to.
#include <gtest/gtest.h>

#include <QDir>

#include "terminal/screen/TerminalText.h"
#include "tests/screen/ScreenRig.h"
#include "tests/support/ScratchFolder.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"

namespace {

FileChoice answer;

TEST(TerminalText, LinesUpToTheirLengthAndTheirFiles) {
    TerminalSettingsForTable().cols = 10;
    TerminalSettingsForTable().rows = 3;
    OpenScreenRig();
    Feed("one\n\x1b[1;6Htwo\nthree\nfour\xE9\n\n");
    const QString visible = "fouré \r\n\r\n\r\n", all = "one  two \r\nthree \r\n" + visible;
    EXPECT_EQ(GetTerminalText(TextPart::kAll), all);
    EXPECT_EQ(GetTerminalText(TextPart::kVisible), visible);

    const ScratchFolder folder;
    DialogAnswers answers;
    answers.file = [](const QString&, const QString&) { return answer; };
    AnswerDialogs(&answers);
    StartCapture();
    CaptureText("captured\x1b[m\ré→");
    const struct {
        FileChoice chosen;
        TextPart what;
        QString name, text;
    } cases[] = {
        {{"a", 0}, TextPart::kVisible, "a.bas", visible},
        {{"b", 1}, TextPart::kAll, "b.txt", all},
        {{"c", 2}, TextPart::kVisible, "c", visible},
        {{"missing/f", 0}, TextPart::kVisible, "missing/f.bas", ""},
        {{".", 2}, TextPart::kVisible, ".", ""},                             // a folder
        {{QString(), 0}, TextPart::kCapture, ".bas", "captured\x1b[m\ré?"},  // a cancelled dialog
    };
    for (const auto& each : cases) {
        answer = each.chosen;
        SaveTerminalText(each.what);
        EXPECT_EQ(QString::fromLatin1(ScratchFolder::Get(each.name)), each.text)
            << each.name.toStdString();
    }
    EXPECT_EQ(capture.buffer, "");
    EXPECT_EQ(QDir().entryList(QDir::Files | QDir::Hidden).size(), 4);

    TerminalScrollDown(2);
    SetLineEnding("CR");
    SetScrollBackLimits(100, 4);
    EXPECT_EQ(GetTerminalText(TextPart::kVisible), "one \rthre\rfour\r");
}

}  // namespace

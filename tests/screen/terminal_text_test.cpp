// The terminal's text, and the files that it is saved to.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/LineEnding.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalText.h"
#include "tests/screen/ScreenRig.h"
#include "ui/Dialogs.h"

namespace {

class TerminalTextTest : public testing::Test {
  protected:
    void SetUp() override {
        TerminalSettingsForTable().cols = 10;
        TerminalSettingsForTable().rows = 3;
        OpenScreenRig();
        Feed("one\n\x1b[1;6Htwo\nthree\nfour");
        Feed("\xE9");
    }
};

FileChoice answer;

QString Saved(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : "none";
}

}  // namespace

TEST_F(TerminalTextTest, LinesUpToTheirLength) {
    Feed("\n\n");
    EXPECT_EQ(GetTerminalText(kTextAll), "one  two \r\nthree \r\nfouré \r\n\r\n\r\n");
    EXPECT_EQ(GetTerminalText(kTextVisible), "fouré \r\n\r\n\r\n");
    TerminalScrollDown(2);
    SetLineEnding("CR");
    SetScrollBackLimits(100, 4);
    EXPECT_EQ(GetTerminalText(kTextVisible), "one \rthre\rfour\r");
    SetScrollBackLimits(100, -1);
    EXPECT_EQ(GetTerminalText(kTextVisible), "\r\r\r");
}

TEST_F(TerminalTextTest, SavesUnderTheChosenName) {
    const QTemporaryDir folder;
    ASSERT_EQ(chdir(folder.path().toLocal8Bit().constData()), 0);
    DialogAnswers answers;
    answers.file = [](const QString&, const QString&) { return answer; };
    AnswerDialogs(&answers);
    StartCapture();
    CaptureText("captured\x1b[m\ré→");
    const QString captured = "captured\x1b[m\ré?";
    const struct {
        FileChoice chosen;
        int what;
        QString name, text;
    } cases[] = {
        {{"a", 0}, kTextVisible, "a.bas", "three \r\nfouré \r\n"},
        {{"b", 1}, kTextAll, "b.txt", "two"},
        {{"c", 2}, kTextVisible, "c", "three"},
        {{"d.bas", 1}, kTextVisible, "d.bas", "three"},
        {{"e.", 0}, kTextVisible, "e..bas", "three"},
        {{"missing/f", 0}, kTextVisible, "missing/f.bas", "none"},
        {{".", 2}, kTextVisible, ".", "none"},               // a folder
        {{QString(), 0}, kTextCapture, ".bas", "captured"},  // a cancelled dialog
    };
    for (const auto& each : cases) {
        answer = each.chosen;
        SaveTerminalText(each.what);
        EXPECT_TRUE(Saved(each.name).contains(each.text)) << each.name.toStdString();
    }
    EXPECT_EQ(Saved(".bas"), captured);
    EXPECT_EQ(capture.buffer, "");
    answer = {QString(), 2};  // no name at all: the capture is gone all the same
    CaptureText("lost");
    SaveTerminalText(kTextCapture);
    EXPECT_EQ(capture.buffer, "");
    EXPECT_EQ(QDir().entryList(QDir::Files | QDir::Hidden).size(), 6);
    AnswerDialogs(nullptr);
    ASSERT_EQ(chdir("/"), 0);
}

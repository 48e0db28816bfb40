#include "base/LineEnding.h"
#include "tests/upload/upload_bench.h"
#include "ui/Dialogs.h"

// Waits of an upload with the default settings, in milliseconds.
constexpr int kStep = 20;  // of a wait for an echo or a prompt
constexpr int kBreak = 3 * 120;
constexpr int kClose = 10 * 120;
constexpr int kRun = 1500 + 20 * 120;
constexpr int kNoEcho = 201 * kStep;

class Upload : public UploadBench {
  protected:
    FarEnd line;
    Upload() { Serve(line); }
};

// Each "^" is a line ending, and stands for one wait for an echo or a prompt, but for RUN's.
struct UploadRow {
    const char* field;
    const char* source;
    const char* sent;
};

// clang-format off
static const UploadRow uploadRows[] = {
    {"s\\maximite", "A\r\n  B\" \"  ", "\3NEW^AUTO^A^B\" \"^\3RUN^"},
    {"s\\micromite", "A", "\3NEW^AUTOSAVE^A^\x1aRUN^"}, {"s\\vgamite", "A\n\n", "\3NEW^AUTOSAVE^A^^\x1aRUN^"},
    {"s\\picomite norun", "A", "\3NEW^AUTOSAVE^A^\x1a"}, {"s\\pi", "\tB \t", "\3NEW^AUTOSAVE^\tB \t^\3RUN^"},
    {"s\\cmm2 nonew", "A", "\3AUTOSAVE \"temp.bas\"^A^\x1b[12~"}, {"s\\command", "A", "\3^A^"},
    {"s\\cmm2 norun", "A", "\3NEW^AUTOSAVE \"temp.bas\"^A^\x1b[11~"},
    {"s\\pico settime setrtc nonew norun", "A", "\3date$ = \"04/03/2026\": time$ = \"05:06:35\"^"
                                        "RTC SETTIME 2026, 03, 04, 05, 06, 35^AUTOSAVE^A^\x1a"},
    {"le\\cr norun", "A\n\nB", "\3NEW^AUTOSAVE^A^^B^\x1a"},
    // The line of the source decides, goes out itself, and brings one empty line more.
    {"s\\maximite", "'target le\\crlf nonew norun\nA\n", "\3AUTOSAVE^'target le\\crlf nonew norun^A^^\x1a"},
    {"s\\maximite", "'\t TARGET s\\pico\n", "\3NEW^AUTOSAVE^'\t TARGET s\\pico^^\x1aRUN^"},
    {"s\\maximite", "A\n'target s\\pico", "\3NEW^AUTO^A^'target s\\pico^\3RUN^"},
    {"nonew norun", "'kwedit!!!\n'KWEDIT!!!\nA", "\3AUTOSAVE^A^\x1a"},
    // The field crunches nothing. A crunched line keeps its CR, and under CR it is one line.
    {"crunch norun", "A  B 'x", "\3NEW^AUTOSAVE^A  B 'x^\x1a"},
    {"", "'target crunch norun\n\n A  B 'x\nC", "\3NEW^AUTOSAVE^A B\r^C\r^\x1a"},
    {"le\\cr", "A", "\3NEW^AUTOSAVE^A^\x1aRUN^"}, {"", "'target crunch\nA 'x\nB", "\3NEW^AUTOSAVE^A@B@^\x1aRUN^"},
    // Directives in the body; families other than command get most of them as text.
    {"le\\crlf norun", "'ECHO x\n'nap 3\n'NAP\n'reconnect\n'echoes", "\3NEW^AUTOSAVE^'nap 3^'NAP^'reconnect^\x1a"},
};
// clang-format on

TEST_F(Upload, SendsTheBytesInThePrescribedTime) {
    for (const UploadRow& row : uploadRows) {
        const QString sent = row.sent;
        const bool run = sent.endsWith("RUN^");
        const int time = kBreak + (sent.count('^') - run) * kStep + kClose + (run ? kRun : 0);
        EXPECT_EQ(Send(row.field, row.source), time) << row.sent;
        const QString bytes = QString(sent).replace('^', lineEnding.bytes).replace('@', '\r');
        EXPECT_EQ(received, bytes.toStdString());
    }
    EXPECT_EQ(Send("s\\cmd", "'nap 3\n'NAP\n'nap 0\n'nap x\n'nap -9\n'napping"), 10600);
    EXPECT_EQ(received, "\3\r\n'napping\r\n");  // three, two, two, two and no seconds
    EXPECT_EQ(Printed(1), "Nap");               // nothing was closed, so nothing completed
    LinkSettingsForTable().lineDelay = 100;
    UploadSettingsForTable().autosaveEndDelay = 7;
    SetOverrideFileSettings(true);
    EXPECT_EQ(Send("s\\pi le\\cr", "'target s\\cmm2"), 300 + 3 * kStep + 1000 + 7 + 2000);
    EXPECT_EQ(received, "\3NEW\rAUTOSAVE\r'target s\\cmm2\r\3RUN\r");
    // The older form is obeyed all the same, starts afresh, is not sent wherever it stands,
    // and ends with the link.
    Send("s\\pi settime setrtc nonew", "A");
    Send("s\\cmm2", "  'onload norun\n'ONLOAD\n' onload x\n'KWEDIT!!!\nA");
    EXPECT_EQ(received, "\3NEW\rAUTOSAVE\r'KWEDIT!!!\rA\r\x1a");
    EXPECT_EQ(Printed(2), "Disconnected|Disconnected.");
    SetUploadText("");
    SetGadgetText(kProgressText, "before");
    UploadProgram();
    EXPECT_EQ(GadgetText(kProgressText) + Printed(1), "beforeNothing to load.");
}

TEST_F(Upload, TellsEachStep) {
    QStringList labels;
    onTick = [&labels](int64_t) {
        EXPECT_TRUE(!GadgetHidden(kProgressText) && GadgetHidden(kSaveMacroButton));
        if (!labels.endsWith(GadgetText(kProgressText))) labels += GadgetText(kProgressText);
    };
    Send("settime setrtc discon", "'KWEDIT!!!\n'Echo:two  blanks" + QString("\nA").repeated(20));
    EXPECT_EQ(labels.join('|'), "| 1/21|10/21|20/21");
    EXPECT_EQ(
        Printed().replace(QRegExp("\\d\\d:\\d\\d:\\d\\d"), "t"),
        "Uploading using:  settime setrtc discon|Upload started|NEW|>|Setting clock|"
        "date$ = \"04/03/2026\": time$ = \"t\"|>|Setting RTC|RTC SETTIME 2026, 03, 04, 05, 06, "
        "07|>|AUTOSAVE|>|two  blanks|Upload completed|Saved 9 bytes|>|RUN|>|Disconnected|"
        "Disconnected.");
    SetComPort("NOT SET");
    EXPECT_EQ(Send("s\\pico norun", "A"), 0);
    EXPECT_EQ(Printed(2), "Upload started|Set port number then try again");
    EXPECT_TRUE(uploadOptions.noRun);  // options stay as applied
    EXPECT_EQ(Send("", "KWHEX1234\n") + Send("", " 'ENCODE name\nA\n"), 0);
    EXPECT_EQ(Printed(2).count("is not part of this build."), 2);
    SetCurrentFile("x.bas");
    UploadPastedText("KWHEX");  // pasted, so a program like any other
    EXPECT_EQ(Printed(1) + uploadSource.currentFile, "Set port number then try again");
}

TEST_F(Upload, ReconnectLetsTheLineGo) {
    SetComPort("ttyNone");
    EXPECT_EQ(Send("s\\cmd", "A\n'Reconnect 4 com7:9600\nB"), kBreak + 2 * kStep + 4000 + kNoEcho);
    EXPECT_EQ(received, "\3\r\nA\r\n");  // the line was gone when B went out
    EXPECT_EQ(linkSettings.comPort + ':' + linkSettings.serialSpeed, "ttyNone:9600");
    EXPECT_EQ(GadgetText(kPortCombo), "com7");
    EXPECT_EQ(Printed(5),
              "Disconnected|Forced disconnect|Attempted reconnect|ttyNone failed!|"
              "Check port then try again");
}

TEST_F(Upload, SilenceIsBounded) {
    answer = Silence;
    EXPECT_EQ(Send("", "A"), kBreak + kNoEcho);
    EXPECT_EQ(Printed(1), "***TIMEOUT***");
    EXPECT_EQ(received, "\3NEW\r\n");
    // Silence in the body: receive mode stays open and nothing more is said or sent.
    answer = [this](char byte) {
        return received.find('B') == std::string::npos ? Echo(byte) : std::string();
    };
    EXPECT_EQ(Send("s\\pico nonew discon", "A\nB\nC"), kBreak + 2 * kStep + kNoEcho);
    EXPECT_EQ(received, "\3AUTOSAVE\r\nA\r\nB\r\n");
    EXPECT_EQ(Printed(4), "AUTOSAVE|>|Disconnected|Disconnected.");
}

struct PinRow {
    const char* pin;
    const char* verdict;
    int silence;  // milliseconds before it
    int steps;    // of 360 ms, until NEW or the end
    const char* printed;
};

static const PinRow pinRows[] = {
    {"1234", "\r\n> ", 0, 2, "Sending PIN|PIN accepted"},
    {"1234", "\r\n> ", 3000, 10, "Sending PIN|PIN accepted"},
    {"1234", "\r\nPIN is fine> ", 3000, 10, "Sending PIN|PIN accepted"},  // the prompt wins
    {"9", "\r\nEnter PIN or 0 to restart: ", 3000, 10, "Sending PIN|Wrong PIN|Aborting upload"},
    {"9", "\r\nno word in pin", 0, 22, "Sending PIN|Wrong PIN|Aborting upload"},
    {"9", "> ", 360 * 19 + 180, 21, "Sending PIN|PIN accepted"},
    {"9", "> ", 360 * 20 + 180, 22, "Sending PIN|Wrong PIN|Aborting upload"},  // nobody looks
    {"", "", 0, 1, "Aborting upload"},
};

TEST_F(Upload, PinDialogue) {
    static QString pin, asked;
    DialogAnswers answers;
    answers.text = [](const QString& title, const QString& prompt, const QString& preset) {
        asked = title + '|' + prompt + '|' + preset;
        return pin;
    };
    AnswerDialogs(&answers);
    for (const PinRow& row : pinRows) {
        int64_t newAt = 0;
        answer = [&](char byte) {
            const bool pinSent = byte == '\r' && received.size() < 9 && newAt == 0;
            if (byte == 'N' && newAt == 0) newAt = clock.Now() - 1;
            delay = pinSent ? row.silence : 0;
            if (byte == '\x03') return std::string("\r\nenter pin OR 0 to restart: ");
            return pinSent ? row.verdict : newAt ? Echo(byte) : std::string();
        };
        pin = row.pin;
        clock.Sleep(1000);
        const int64_t start = clock.Now();
        Send("norun", "A");
        EXPECT_EQ((newAt ? newAt : clock.Now()) - start, 360 * row.steps) << row.verdict;
        EXPECT_TRUE(Printed().contains(row.printed)) << Printed().toStdString();
        EXPECT_EQ(QString(row.printed).contains("accepted"), newAt != 0) << row.verdict;
    }
    EXPECT_EQ(asked, "PIN required!|Enter security PIN|");
    AnswerDialogs(nullptr);
}

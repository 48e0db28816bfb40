#include "base/LineEnding.h"
#include "tests/upload/upload_bench.h"
#include "ui/Dialogs.h"

// Waits of an upload with the default settings, in milliseconds.
constexpr int kStep = 20;  // of a wait for an echo or a prompt
constexpr int kBreak = 3 * 120;
constexpr int kClose = 10 * 120;
constexpr int kRun = 1500 + 20 * 120;
constexpr int kAll = kBreak + 2 * kStep + kClose + kRun;  // but the lines
constexpr int kNoEcho = 201 * kStep;

class Upload : public UploadBench {
  protected:
    FarEnd line;
    Upload() { Serve(line); }
};

struct UploadRow {
    const char* field;
    const char* source;
    const char* sent;  // "^" is CR LF
    int time;          // milliseconds
};

// clang-format off
static const UploadRow uploadRows[] = {
    // Each family.
    {"s\\maximite",       "A\r\n  B\" \"  ", "\3NEW^AUTO^A^B\" \"^\3RUN^", kAll + 2 * kStep},
    {"s\\micromite",      "A",               "\3NEW^AUTOSAVE^A^\x1aRUN^", kAll + kStep},
    {"s\\vgamite",        "A\n\n",           "\3NEW^AUTOSAVE^A^^\x1aRUN^", kAll + 2 * kStep},
    {"s\\picomite norun", "A",               "\3NEW^AUTOSAVE^A^\x1a", kAll + kStep - kRun},
    {"s\\pi-cromite",     "A\tB \t",         "\3NEW^AUTOSAVE^A\tB \t^\3RUN^", kAll + kStep},
    {"s\\cmm2 nonew",     "A", "\3AUTOSAVE \"temp.bas\"^A^\x1b[12~", kAll - kRun},
    {"s\\cmm2 norun",     "A", "\3NEW^AUTOSAVE \"temp.bas\"^A^\x1b[11~", kAll + kStep - kRun},
    {"s\\command",        "A", "\3^A^", kAll - kRun},
    // Clocks and line endings.
    {"s\\pico settime setrtc nonew norun", "A", "\3date$ = \"04/03/2026\": time$ = \"05:06:35\"^"
                          "RTC SETTIME 2026, 03, 04, 05, 06, 35^AUTOSAVE^A^\x1a", kAll + 2 * kStep - kRun},
    {"le\\cr norun",      "A\n\nB",          "\3NEW\rAUTOSAVE\rA\r\rB\r\x1a", kAll + 3 * kStep - kRun},
    // The line of the source decides, goes out itself, and brings one empty line more.
    {"s\\maximite", "'target le\\crlf s\\pico nonew norun\nA\n",
        "\3AUTOSAVE^'target le\\crlf s\\pico nonew norun^A^^\x1a", kAll + 2 * kStep - kRun},
    {"s\\maximite", "A\t'TARGET s\\pico\n",  "\3NEW^AUTOSAVE^A\t'TARGET s\\pico^^\x1aRUN^", kAll + 2 * kStep},
    {"s\\maximite", "A\n'target s\\pico",    "\3NEW^AUTO^A^'target s\\pico^\3RUN^", kAll + 2 * kStep},
    {"nonew norun", "'kwedit!!!\n'KWEDIT!!!\nA", "\3AUTOSAVE^A^\x1a", kAll - kRun},
    // The field crunches nothing. A crunched line keeps its CR.
    {"crunch nonew norun", "A  B 'x",        "\3AUTOSAVE^A  B 'x^\x1a", kAll - kRun},
    {"", "'target crunch nonew norun\n\n A  B 'x\nC", "\3AUTOSAVE^A B\r^C\r^\x1a", kAll + kStep - kRun},
    {"le\\cr", "'target norun\n", "\3NEW^AUTOSAVE^'target norun^^\x1a", kAll + 2 * kStep - kRun},
    {"le\\cr", "A", "\3NEW\rAUTOSAVE\rA\r\x1aRUN\r", kAll + kStep},
    {"", "'target crunch norun\nA 'x\nB", "\3NEW\rAUTOSAVE\rA\rB\r\r\x1a", kAll + kStep - kRun},
    // Directives in the body; other families than command get most of them as text.
    {"le\\crlf nonew norun", "'ECHO x\n'nap 3\n'NAP\n'reconnect\n'echoes",
        "\3AUTOSAVE^'nap 3^'NAP^'reconnect^\x1a", kAll + 2 * kStep - kRun},
    {"s\\cmd", "'nap 3\n'NAP\n'nap 0\n'nap x\n'nap -9\n'napping", "\3^'napping^", kAll - kRun + 9000},
};
// clang-format on

TEST_F(Upload, SendsTheBytesInThePrescribedTime) {
    for (const UploadRow& row : uploadRows) {
        EXPECT_EQ(Send(row.field, row.source), row.time) << row.field << "\n" << row.source;
        EXPECT_EQ(received, QString(row.sent).replace('^', "\r\n").toStdString()) << row.source;
    }
    LinkSettingsForTable().lineDelay = 100;
    UploadSettingsForTable().autosaveEndDelay = 7;
    SetOverrideFileSettings(true);
    EXPECT_EQ(Send("s\\pi le\\cr", "'target s\\cmm2"), 300 + 3 * kStep + 1000 + 7 + 2000);
    EXPECT_EQ(received, "\3NEW\rAUTOSAVE\r'target s\\cmm2\r\3RUN\r");
    // The older form is obeyed all the same, wherever it stands it is not sent, and it ends
    // with the link.
    Send("s\\cmm2", "  'onload norun maximite\n'ONLOAD\n' onload x\n'KWEDIT!!!\nA");
    EXPECT_EQ(received, "\3NEW\rAUTO\r'KWEDIT!!!\rA\r\3");
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
    Send("settime setrtc discon", "'KWEDIT!!!\n'Echo  two  blanks" + QString("\nA").repeated(20));
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

TEST_F(Upload, SilenceAndFloodsAreBounded) {
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

// The link is a socket here: a write to a peer that is gone must do no harm.
TEST_F(UploadBench, ASlowAFloodingAndACutLine) {
    FarEnd line(true);
    Serve(line);
    answer = [this](char byte) {
        delay = byte == '\r' ? 3970 : 0;
        return Echo(byte);
    };
    EXPECT_EQ(Send("norun nonew", "A"), kBreak + 2 * 199 * kStep + kClose);
    answer = [this](char byte) {
        delay = byte == '\r' ? 3990 : 0;  // comes with the 200th step, which is too late
        return Echo(byte);
    };
    EXPECT_EQ(Send("norun nonew", "A"), kBreak + 200 * kStep);
    answer = Silence;
    onTick = [&line](int64_t) { line.Write(std::string(5000, 'x') + "\n>"); };
    EXPECT_EQ(Send("", "A"), kAll + kStep);
    const int64_t cutAt = clock.Now() + kBreak + 50;
    onTick = [&](int64_t now) { now < cutAt ? line.Write("\n>") : line.Close(); };
    EXPECT_LE(Send("", QString("A\n").repeated(500)), kBreak + 50 + 2 * kNoEcho);
}

static QString nextPin, asked;

static QString AnswerPin(const QString& title, const QString& prompt, const QString& preset) {
    asked = title + '|' + prompt + '|' + preset;
    return nextPin;
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
    DialogAnswers answers;
    answers.text = AnswerPin;
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
        nextPin = row.pin;
        clock.Sleep(1000);
        const int64_t start = clock.Now();
        Send("norun", "A");
        EXPECT_EQ((newAt ? newAt : clock.Now()) - start, 360 * row.steps) << row.verdict;
        EXPECT_TRUE(Printed().contains(row.printed)) << Printed().toStdString();
        EXPECT_EQ(received.find("NEW") == std::string::npos, newAt == 0);
    }
    EXPECT_EQ(asked, "PIN required!|Enter security PIN|");
    AnswerDialogs(nullptr);
}

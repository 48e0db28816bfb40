// Whole uploads: bytes, times, lines printed, and what ends them early.
#include "simulator/SimulatedBoard.h"
#include "tests/upload/upload_bench.h"

namespace {

const bool startState = KeepStartState(PutBackUpload);

using Upload = UploadBench;

// The field, the source, and then the milliseconds, what goes out, where each "^" is a line ending,
// and the family in force; "#" for the link's end. A break takes 360, each wait for an echo or a
// prompt 20, the end 1200 and RUN 3900.
// clang-format off
const char* const uploadRows[][3] = {
    {"SetTime setRTC NORUN nonew\\ discon\\x dev\\y zz", "A", "1640|\3date$ = \"04/03/2026\": "
     "time$ = \"05:06:07\"^RTC SETTIME 2026, 03, 04, 05, 06, 07^AUTOSAVE^A^\x1a|#"},
    {"s\\cmm2", "' onload settime nonew vgamite\n'ONLOAD\nA", "5520|\3date$ = \"04/03/2026\": "
     "time$ = \"05:06:09\"^AUTOSAVE^A^\x1aRUN^|micromite#"},
    {"s", "A\r\n  B\" \"  ", "5540|\3NEW^AUTOSAVE^A^B\" \"^\x1aRUN^|"},
    {"'target s\\micromite", "A", "5520|\3NEW^AUTOSAVE^A^\x1aRUN^|micromite"},
    {"' target syn\\vgamite", "A\n\n", "5540|\3NEW^AUTOSAVE^A^^\x1aRUN^|vgamite"},
    {"S\\Maximite", "A\n'target s\\pico", "5540|\3NEW^AUTO^A^'target s\\pico^\3RUN^|maximite"},
    {"A 'target s\\pi", "\tB \t", "5520|\3NEW^AUTOSAVE^\tB \t^\3RUN^|pi-cromite"},
    {"s\\pico file\\A 'norun", "A", "5520|\3NEW^AUTOSAVE^A^\x1aRUN^|picomite"},
    {"' target s\\cmd 'target nonew", "A", "1600|\3^A^|command"},
    {"s\\command s\\picomite", "A", "1600|\3AUTOSAVE^A^\x1a|picomite"},
    {"s\\cmm2 s\\x+", "A", "1620|\3NEW^AUTOSAVE \"p.bas\"^A^\x1b[12~|x+"},
    {"s\\cmm2 norun", "A", "1620|\3NEW^AUTOSAVE \"p.bas\"^A^\x1b[11~|cmm2"},
    {"norun s\\cmm2 file\\no", "A", "1620|\3NEW^AUTOSAVE \"p.bas\"^A^\x1b[12~|cmm2"},
    {"s\\cmm2 FILE\\", "A", "1620|\3NEW^AUTOSAVE \"\"^A^\x1b[12~|cmm2"},
    {"s\\cmm2 file\\A.b\\x", "A", "1620|\3NEW^AUTOSAVE \"A.b\"^A^\x1b[12~|cmm2"},
    {"file\\A.bas s\\cmm2", "A", "1620|\3NEW^AUTOSAVE \"p.bas\"^A^\x1b[12~|cmm2"},
    {"norun        nonew", "A", "1600|\3AUTOSAVE^A^\x1a|"}, {"norun         nonew", "A", "1620|\3NEW^AUTOSAVE^A^\x1a|"},
    // The line of the source decides, goes out itself, and brings one empty line more.
    {"s\\maximite", "'target le\\crlf nonew norun\nA\n", "1640|\3AUTOSAVE^'target le\\crlf nonew norun^A^^\x1a|"},
    {"nonew norun", "'kwedit!!!\n'KWEDIT!!!\nA", "1600|\3AUTOSAVE^A^\x1a|"},
    // The field crunches nothing. A crunched line keeps its CR, and under CR it is one line.
    {"crunch norun", "A  B 'x", "1620|\3NEW^AUTOSAVE^A  B 'x^\x1a|"},
    {"", "'target CRUNCH norun\n\n A  B 'x\nC", "1640|\3NEW^AUTOSAVE^A B\r^C\r^\x1a|"},
    {"", "'target le\\cr crunch norun le\\crlf\nA\nB", "1620|\3NEW^AUTOSAVE^A\rB\r^\x1a|"},
    {"", "'target le\\cr crunch\nA 'x\nB", "5520|\3NEW^AUTOSAVE^A^B^^\x1aRUN^|"},
    // Directives in the body; families other than command get most of them as text.
    {"le\\crlf norun", "'ECHO x\n'nap 3\n'NAP\n'reconnect\n'echoes", "1660|\3NEW^AUTOSAVE^'nap 3^'NAP^'reconnect^\x1a|"},
    // The older form is not sent wherever it stands, and ends with the link.
    {"", " '\t onload maximite\nA", "5540|\3NEW^AUTO^'\t onload maximite^A^\3RUN^|maximite#"},
    {"", "'onload PI-cromite norunning\tsettime\nA", "1620|\3NEW^AUTOSAVE^A^\3|pi-cromite#"},
    {"", "'onload picomite command micromite\nA", "1600|\3AUTOSAVE^A^\x1a|picomite#"},
    {"", "'onload cmm2 maximite\nA", "1620|\3NEW^AUTOSAVE \"temp.bas\"^A^\x1b[12~|cmm2#"},
    {"", "'onload norun cmm2 file/*\nA", "1620|\3NEW^AUTOSAVE \"p.bas\"^A^\x1b[11~|cmm2#"},
    {"", "'onload file\\b.bas cmm2 crunch\nA 'x", "1620|\3NEW^AUTOSAVE \"b.bas\"^A\r^\x1b[12~|cmm2#"},
};
// clang-format on

TEST_F(Upload, SendsTheBytesInThePrescribedTime) {
    SetCurrentFile("/home/me/p.bas");
    for (const auto& [field, source, outcome] : uploadRows) {
        line.emplace();
        PutBack(uploadOptions);
        const QString sent = Send(field, source);
        EXPECT_EQ(sent + '|' + uploadOptions.familyName + (SerialLinkIsOpen() ? "" : "#"), outcome);
    }
    line.emplace();
    SetCurrentFile("");
    EXPECT_EQ(Send("s\\cmm2 nonew", "A"), "1600|\3AUTOSAVE \"temp.bas\"^A^\x1b[12~");
    EXPECT_EQ(Send("norun", "A"), "1620|\3NEW^AUTOSAVE^A^\x1b[11~");  // the family stays
    EXPECT_EQ(GadgetText(kFamilyCombo), "cmm2");
    // Three, two, two, two and no seconds; nothing is closed, so nothing is completed.
    const QString naps = "'nap 3\n'NAP\n'nap 0\n'nap x\n'nap -9\n'napping";
    EXPECT_EQ(Send("s\\cmd le\\cr", naps, 1), "10600|\3^'napping^Nap");
    LinkSettingsForTable().lineDelay = 100;
    UploadSettingsForTable().autosaveEndDelay = 7;
    SetOverrideFileSettings(true);
    EXPECT_EQ(Send("s\\pi", "'target s\\cmm2"), "3367|\3NEW^AUTOSAVE^'target s\\cmm2^\3RUN^");
    // The older form is obeyed all the same, and starts afresh.
    Send("s\\pi settime setrtc nonew", "A");
    EXPECT_EQ(Send("s\\cmm2", "'onload COM3:38\nA\n'KWEDIT!!!", 2),
              "3387|\3NEW^AUTOSAVE^A^'KWEDIT!!!^\x1aRUN^Disconnected|Disconnected.");
    EXPECT_EQ(linkSettings.comPort + ':' + linkSettings.serialSpeed, "com3:38");
}

TEST_F(Upload, TellsEachStep) {
    QStringList labels;
    onTick = [&labels] {
        EXPECT_TRUE(!GadgetHidden(kProgressText) && GadgetHidden(kSaveMacroButton));
        if (!labels.endsWith(GadgetText(kProgressText))) labels += GadgetText(kProgressText);
    };
    Send("settime setrtc discon", "'KWEDIT!!!\n'Echo:two  blanks" + QString("\nA").repeated(20));
    EXPECT_EQ(labels.join('|'), "| 1/21|10/21|20/21");
    EXPECT_EQ(Printed().remove(QRegExp("[0-9/:]+\"|(, \\d+)+")),
              "Uploading using:  settime setrtc discon|Upload started|NEW|>|Setting clock|"
              "date$ = \": time$ = \"|>|Setting RTC|RTC SETTIME 2026|>|AUTOSAVE|>|two  blanks|"
              "Upload completed|Saved 9 bytes|>|RUN|>|Disconnected|Disconnected.");
    SetComPort("NOT SET");
    EXPECT_EQ(Send("s\\pico norun", "A", 2), "0|Upload started|Set port number then try again");
    EXPECT_TRUE(uploadOptions.noRun);  // options stay as applied
    EXPECT_EQ(Send("", "KWHEX1234\n"), "0|");
    EXPECT_EQ(Send("", " 'ENCODE x\nA\n", 1), "0|No file to write beside: nothing was encoded.");
    SetCurrentFile("x.bas");
    UploadPastedText("KWHEX");  // pasted, so a program like any other
    EXPECT_EQ(Printed(1) + uploadSource.currentFile, "Set port number then try again");
}

TEST_F(Upload, SilenceAReconnectAndALeave) {
    answer = [](char) { return std::string(); };
    EXPECT_EQ(Send("", "A", 1), "4380|\3NEW^***TIMEOUT***");
    LinkSettingsForTable().lineDelay = 0;  // makes the break wait for a prompt, too
    EXPECT_EQ(Send("", "A", 1), "4020|\3Upload started");
    LinkSettingsForTable().lineDelay = 120;
    // Silence in the body: receive mode stays open and nothing more is said or sent.
    answer = [this](char byte) { return received.find('B') < 99 ? std::string() : Echo(byte); };
    EXPECT_EQ(Send("s\\pico nonew", "A\nB\nC", 2), "4420|\3AUTOSAVE^A^B^AUTOSAVE|>");
    // The board gets its break and no more of the program.
    onTick = [this] { RequestLeave(received.find('B') < 99); };
    const QString sent = Send("s\\pico nonew", "A\nB\nC\nD", 1);
    onTick = [] { RequestLeave(false); };
    clock.Sleep(1);
    EXPECT_EQ(sent + Received().right(2), "420|\3AUTOSAVE^A^B^Program upload aborted^\3");
    SetComPort("ttyNone");
    EXPECT_EQ(Send("s\\cmd", "A\n'Reconnect 4 com7:9600\nC"), "8420|\3^A^");  // C found no line
    EXPECT_EQ(linkSettings.comPort + ':' + linkSettings.serialSpeed, "ttyNone:9600");
    EXPECT_EQ(Printed(5),
              "Disconnected|Forced disconnect|Attempted reconnect|ttyNone failed!|"
              "Check port then try again");
}

// What a locked board answers, after how many milliseconds, how many reads of 360 ms that
// takes, and whether the PIN counts as accepted.
const std::tuple<const char*, int, int, bool> pinRows[] = {
    {"\r\nPIN is fine> ", 3000, 10, true},  // the prompt wins
    {"\r\nEnter PIN or 0 to restart: ", 3000, 10, false},
    {"\r\nno word in pin", 0, 22, false},
    {"> ", 360 * 19 + 180, 21, true},
    {"> ", 360 * 20 + 180, 22, false},  // nobody looks any more
};

TEST_F(Upload, PinDialogue) {
    for (const auto& [verdict, silence, steps, accepted] : pinRows) {
        answer = [&, text = verdict, wait = silence](char byte) {
            const bool pinSent = received.size() == 4;
            delay = pinSent ? wait : 0;
            if (byte == '\x03') return std::string("\r\nenter pin OR 0 to restart: ");
            return pinSent ? text : received.size() > 5 ? Echo(byte) : std::string();
        };
        typed = QStringList("12");
        const int time = 360 * steps + (accepted ? 3 * 20 + 1200 : 0);
        const QString sent = Send("norun", "A");
        EXPECT_EQ(sent,
                  QString::number(time) + "|\00312^" + (accepted ? "NEW^AUTOSAVE^A^\x1a" : ""));
        const QString said = Printed(9).section("Sending PIN|", -1);
        EXPECT_TRUE(said.startsWith(accepted ? "PIN accepted|NEW" : "Wrong PIN|Aborting upload"));
    }
    EXPECT_EQ(Send("", "A", 1), "360|\3Aborting upload");  // nothing is typed
    EXPECT_EQ(asked.last(), "PIN required!|Enter security PIN");
}

TEST_F(Upload, RunsOnEachSimulatedBoard) {
    const char* const program = "' Sum\nFOR I = 1 TO 4\n  A = A + I\nNEXT I\nPRINT \"sum\"; A\n";
    const std::pair<const char*, const char*> boards[] = {{"picomite", "s\\picomite"},
                                                          {"armmite", "s\\micromite le\\lf"},
                                                          {"micromite+", "s\\micromite+ le\\cr"},
                                                          {"maximite", "s\\maximite"},
                                                          {"pi-cromite", "s\\pi le\\crlf"},
                                                          {"cmm2", "s\\cmm2 file\\sum.bas"}};
    for (const auto& [name, field] : boards) {
        simulator::SimulatedBoard board(*simulator::FindBoardFacts(name), {});
        board.PowerUp(clock.Now());
        board.TakeOutput();
        answer = [&](char byte) { return board.Receive(std::string(1, byte), clock.Now()), ""; };
        onTick = [&] { board.Advance(clock.Now()), line->Write(board.TakeOutput()); };
        EXPECT_TRUE(Send(field, program, 4).contains("sum 10")) << name;
    }
}

}  // namespace

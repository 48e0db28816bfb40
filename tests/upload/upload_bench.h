// The gadgets that an upload touches, and a board that answers each byte by a rule.
#pragma once

#include <QDir>
#include <deque>
#include <optional>

#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/TerminalText.h"
#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "upload/LoadPath.h"
#include "upload/UploadProgram.h"

class UploadBench : public testing::Test {
  protected:
    VirtualClock clock;
    std::optional<FarEnd> line{std::in_place};
    std::string received;
    std::function<std::string(char byte)> answer = Echo;
    std::function<void()> onTick = [] {};
    int64_t delay = 0;  // milliseconds before the answer goes out
    std::deque<std::pair<int64_t, std::string>> pending;
    static inline QStringList typed;  // what the user types into the next dialogs
    static inline QStringList asked;  // their titles and prompts
    static inline DialogAnswers answers;

    static QString Answer(const QString& title, const QString& prompt) {
        asked += title + '|' + prompt;
        return typed.isEmpty() ? QString() : typed.takeFirst();
    }

    UploadBench() {
        typed.clear();
        asked.clear();
        answers.secret = Answer;
        answers.text = [](const QString& title, const QString& prompt, const QString& preset) {
            return Answer(title, prompt + preset);
        };
        AnswerDialogs(&answers);
        OpenNumberedWindow(kMainWindow, 0, 0, 900, 700, "Test", kStandardWindowFlags);
        for (int gadget : {kPortCombo, kSpeedCombo, kFamilyCombo, kAddressEntry, kSpecEntry,
                           kProgressText, kSaveMacroButton}) {
            TextEntryGadget(gadget, 0, 0, 9, 9, "");
        }
        CanvasGadget(kTerminalCanvas, 0, 30, 800, 600, kCanvasKeyboard);
        SetUpTerminal();
        clock.onTick = [this](int64_t now) {
            for (char byte : line->Read()) {
                received += byte;
                const std::string text = answer(byte);  // may set the delay
                pending.push_back({now + delay, text});
            }
            for (; !pending.empty() && pending.front().first <= now; pending.pop_front())
                line->Write(pending.front().second);
            onTick();
        };
    }

    // At once; a line end brings the prompt, and so do Ctrl-C and Ctrl-Z.
    static std::string Echo(char byte) {
        if (byte == '\x1a') return "\r\nSaved 9 bytes\r\n> ";
        if (byte == '\r' || byte == '\x03') return "\r\n> ";
        return byte == '\n' ? std::string() : std::string(1, byte);
    }

    // Uploads a text under a specification field: the milliseconds it took, "|", and the
    // bytes sent, with "^" for the line ending, and then the last lines printed.
    QString Send(const QString& field, const QString& text, int printed = 0) {
        SetGadgetText(kSpecEntry, field);
        SetUploadText(text);
        received.clear();
        const int64_t start = clock.Now();
        FocusGadget(kSpecEntry);
        UploadProgram();
        EXPECT_EQ(FocusedGadget(), kTerminalCanvas);
        EXPECT_TRUE(GadgetHidden(kProgressText) && !GadgetHidden(kSaveMacroButton));
        EXPECT_EQ(GadgetText(kProgressText), "");
        return QString::number(clock.Now() - start) + '|' + Received() + Printed(printed);
    }
    QString Received() const {
        return QString::fromStdString(received).replace(lineEnding.bytes, "^");
    }

    // The last `count` lines of the terminal that hold anything, joined by "|".
    static QString Printed(int count = 999) {
        const QString text = GetTerminalText(TextPart::kAll).trimmed();
        const QStringList lines = text.split(QRegExp("\\s*[\r\n]+\\s*"));
        return QStringList(lines.mid(std::max(0, lines.size() - count))).join('|');
    }
};

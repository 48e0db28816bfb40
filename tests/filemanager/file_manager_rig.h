// The file manager's gadgets, and a simulated board on the virtual clock.
#pragma once

#include <QRegularExpression>

#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerWindow.h"
#include "simulator/SimulatedBoard.h"
#include "tests/support/FarEnd.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "tests/support/TurnsClock.h"
#include "ui/windows/FileDialogs.h"

class FileManager : public testing::Test {
  protected:
    static inline QString answer;  // of a text, and of the file dialog
    static inline bool yes;        // to a question
    static inline DialogAnswers answers;

    FileManager() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 300, "Test", kStandardWindowFlags);
        TextEntryGadget(kFamilyCombo, 0, 0, 9, 9, "picomite");
        TextEntryGadget(kModeText, 0, 0, 9, 9, "");
        AddDefaultFamilies();
        SetPcFolder(folder + "/");
        SetLineEnding("CR");  // CR LF is Enter twice to these boards
        SetAfterFlashUpload(RefreshDeviceList);
        answers.message = [](const QString& title, const QString& text) {
            return TerminalPrintLine('[' + title + '|' + text + ']'), yes;
        };
        answers.text = [](const QString& title, const QString& text, const QString& preset) {
            return TerminalPrintLine('[' + title + '|' + text + preset + ']'), answer;
        };
        answers.file = [](const QString& title, const QString& preset) {
            return TerminalPrintLine('[' + title + preset.right(6) + ']'), FileChoice{answer};
        };
        AnswerDialogs(&answers);
        yes = false;
        StartCapture();
    }
    ~FileManager() override { StopTransferWorkers(); }

    // A simulated board at the far end: each millisecond it reads, acts and writes.
    void PlugIn() {
        wire = std::make_unique<FarEnd>(true);
        board.PowerUp(clock.Now());
        board.TakeOutput();
        clock.onTick = [this](int64_t now) {
            const std::string came = wire->Read();
            received += came;
            board.Receive(came, now);
            board.Advance(now);
            toCome += board.TakeOutput();
            toCome.erase(0, wire->Write(toCome));
        };
        ConnectDevice();
    }

    // What the main loop does, until nothing has come for a while or the text was printed.
    void Poll(const char* text = "(never)") {
        char block[16384];
        for (int quiet = 0, turns = 0; quiet < 40 && turns < 4000; ++quiet, ++turns) {
            if (capture.buffer.contains(text)) return;
            clock.Sleep(50);
            for (int32_t event; (event = WaitForEvent(0)) != kNoEvent; quiet = 0) {
                if (event == kEventSendStatus) ShowSendStatus();
                if (event == kEventReceiveStatus) ShowReceiveStatus();
                if (event == kEventPrintLine) PrintHandedLines();
                if (event == kEventSendDone) BatchSend(kQueueNext);
                if (event == kEventReceiveDone) BatchReceive(kQueueNext);
            }
            const bool busy = XmodemSendWorkerRuns() || XmodemReceiveWorkerRuns();
            const int64_t count = busy ? 0 : ReceiveBytes(block, sizeof block);
            if (count > 0) ParseListingChunk(DecodeLinkText(block, count));
            if (busy || count > 0) quiet = 0;
        }
    }

    static std::string Rows(int list = kDeviceList) {
        QStringList rows;
        for (int row = 0; row < GadgetItemCount(list); ++row) rows += GadgetItemText(list, row);
        return rows.join('|').toStdString();
    }
    static void Raise(int64_t type, void (*handler)()) {
        InterfaceEvent event;
        event.type = type;
        const InterfaceEvent* before = MakeEventCurrent(&event);
        handler();
        MakeEventCurrent(before);
    }
    // "click 2": selects the row in both lists, and then acts.
    static void Act(const QString& step) {
        // From button kCopyToDeviceButton on.
        static const char words[] =
            "send fetch delete folder PC-delete PC-folder view - - - refresh abort - - edit";
        const QString word = step.section(' ', 0, 0);
        if (word == "open") return OpenFileManager();
        for (const int list : {kPcList, kDeviceList}) {
            SetGadgetState(list, -1);
            for (const QString& row : step.split(' ').mid(1))
                SetGadgetItemSelected(list, row.toInt(), true);
        }
        if (word == "click") return Raise(kTypeLeftClick, DeviceListClicked);
        if (word == "double") return Raise(kTypeLeftDoubleClick, DeviceListClicked);
        TakeEvents();
        const int button = kCopyToDeviceButton + QString(words).split(' ').indexOf(word);
        Click(WidgetOfGadget(button));
        TakeEvents();
    }

    // Without sequences and ACKs, and on one line: "^" stands for a CR.
    QString Plain(QString text) {
        static const QRegularExpression noise("\x1b\\[[0-9;?]*[a-zA-Z]|\6");
        text.remove(noise).replace('\r', '^').replace('\3', "<3>").replace('\x1a', "<1A>");
        return text.replace(folder, "~").simplified();
    }
    std::string Printed() { return Plain(TakeCapture()).toStdString(); }

    // For each step: the milliseconds that it took, what went out, what was printed and asked,
    // and the device's rows once it has answered, if others. An indented line goes on.
    void Follow(QString script) {
        QStringList told;
        for (const QString& step : script.replace("\n    ", "").split('\n')) {
            const std::string rows = Rows();
            const int64_t start = clock.Now();
            Act(step.section(':', 0, 0));
            QString line = step.section(':', 0, 0) + ": " + QString::number(clock.Now() - start);
            clock.Sleep(1);
            line += ' ' + QString::fromStdString(received);
            Poll();
            line += ' ' + TakeCapture();
            if (rows != Rows()) line += " -> " + QString::fromStdString(Rows());
            told += Plain(line);
            received.clear();
        }
        EXPECT_EQ(told.join('\n').toStdString(), script.toStdString());
    }
    TurnsClock clock;
    ScratchFolder scratch;
    const QString folder = scratch.folder.path();
    simulator::SimulatedBoard board{*simulator::FindBoardFacts("picomite")};
    std::unique_ptr<FarEnd> wire;
    std::string received, toCome;  // of the board, and what the link didn't take yet
};

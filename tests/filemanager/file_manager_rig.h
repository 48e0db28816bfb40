// The file manager's gadgets and what they work on, with a simulated board on the virtual
// clock.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerSettings.h"
#include "filemanager/FileManagerWindow.h"
#include "filemanager/PcPane.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSeams.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "tests/support/BoardOnLine.h"
#include "tests/support/Gestures.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "tests/support/TurnsClock.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"

class FileManager : public testing::Test {
  protected:
    static inline QString answer;  // of the text dialog
    static inline bool yes;        // to a question
    static inline FileChoice choice;
    static inline QString asked;  // by dialogs: title and text

    FileManager() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 300, "Test", kStandardWindowFlags);
        TextEntryGadget(kFamilyCombo, 0, 0, 9, 9, "picomite");
        TextEntryGadget(kModeText, 0, 0, 9, 9, "");
        AddDefaultFamilies();
        SetPcFolder(folder.path() + "/");
        SetLineEnding("CR");  // CR LF is Enter twice to these boards
        SetAfterFlashUpload(RefreshDeviceList);
        answers.message = [](const QString& title, const QString& text) {
            return asked += title + '|' + text, yes;
        };
        answers.text = [](const QString& title, const QString& text, const QString& preset) {
            return asked += title + '|' + text + preset, answer;
        };
        answers.file = [](const QString& title, const QString& preset) {
            return asked += title + preset.right(6), choice;
        };
        AnswerDialogs(&answers);
        asked.clear();
        yes = false;
        StartCapture();
    }
    ~FileManager() override {
        AnswerDialogs(nullptr);
        DisconnectDevice();
        line.reset();
        SetTerminalMode(0);
    }

    void PlugIn(const char* board, int msPerByte = 1) {
        line.reset();  // it hands the clock back
        line = std::make_unique<BoardOnLine>(board, clock);
        line->SlowDown(msPerByte);
        ConnectDevice();
        SetTerminalMode(kModeFileManager);
    }

    // What the main loop's poll does, until nothing has come for a while.
    void Poll() {
        char block[16384];
        for (int quiet = 0; quiet < 40; ++quiet) {
            clock.Sleep(50);
            const int64_t count = ReceiveBytes(block, sizeof block);
            if (count <= 0) continue;
            ParseListingChunk(DecodeLinkText(block, count));
            quiet = 0;
        }
    }

    static std::string Rows() {
        QStringList rows;
        for (int row = 0; row < GadgetItemCount(kDeviceList); ++row)
            rows += GadgetItemText(kDeviceList, row);
        return rows.join('|').toStdString();
    }
    std::string RowsToCome() { return Poll(), Rows(); }
    static void Select(int list, const std::vector<int>& rows) {
        SetGadgetState(list, -1);
        for (int row : rows) SetGadgetItemSelected(list, row, true);
    }
    // Selects rows of the device and acts: the milliseconds that it took, "|", and what went
    // out, with "^" for the line ending.
    template <typename Action>
    std::string Did(const std::vector<int>& rows, Action action) {
        Select(kDeviceList, rows);
        const int64_t start = clock.Now();
        action();
        const int64_t took = clock.Now() - start;
        clock.Sleep(1);
        const QString all = QString::fromStdString(line ? line->Received() : "").replace('\r', '^');
        return (QString::number(took) + '|' + all.mid(std::exchange(seen, all.size())))
            .toStdString();
    }
    std::string Press(int button, const std::vector<int>& rows = {}) {
        TakeEvents();
        return Did(rows, [button] { Click(WidgetOfGadget(button)), TakeEvents(); });
    }
    std::string Raise(int64_t type, void (*handler)(), const std::vector<int>& rows = {}) {
        InterfaceEvent event;
        event.type = type;
        const InterfaceEvent* before = MakeEventCurrent(&event);
        const std::string did = Did(rows, handler);
        MakeEventCurrent(before);
        return did;
    }
    QString MakeFile(const QString& name, const std::string& bytes = "PRINT 1\n") {
        return ScratchFolder::Put(folder.path() + '/' + name, QByteArray::fromStdString(bytes));
    }

    DialogAnswers answers;
    TurnsClock clock;
    QTemporaryDir folder;
    std::unique_ptr<BoardOnLine> line;
    int seen = 0;  // characters of what went out
};

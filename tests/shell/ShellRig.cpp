#include "tests/shell/ShellRig.h"

#include "base/LineEnding.h"
#include "shell/CommandHistory.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalText.h"
#include "terminal/screen/WindowLayout.h"
#include "tests/support/StartState.h"
#include "ui/drawing/Drawing.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/MenuItem.h"

namespace {

const bool startState = KeepStartState(PutBackShell);

// The beginning of a text, its line ends as "^".
QString Head(QString text) {
    return text.replace("\r\n", "^").replace('\n', '^').replace(" ^", "^").left(12);
}

QString LastLine() {
    const QStringList lines = GetTerminalText(TextPart::kVisible).split(lineEnding.bytes);
    for (int i = lines.size(); i-- > 0;) {
        if (!lines[i].trimmed().isEmpty()) return lines[i].trimmed();
    }
    return "(none)";
}

QString OpenWindows() {
    QString open;
    for (int window : {kHelpWindow, kFileManagerWindow, kNoticeWindow}) {
        if (WindowIsOpen(window)) open += QString::number(window) + '.';
    }
    return open;
}

using Facts = std::map<QString, QString>;

// Whatever the routes of the main window can change. A frame that does not tell of the
// terminal's focus is a fact as well.
Facts State(const QString& asked) {
    const auto number = [](int64_t value) { return QString::number(value); };
    const bool lit = CanvasPicture(kFrameCanvas).pixel(2, 2) == 0xFF7FC2FF;
    // clang-format off
    Facts facts = {
        {"address", linkSettings.tcpAddress + ':' + linkSettings.tcpPort}, {"asked", asked},
        {"bar", GadgetText(kCommandEntry)},
        {"capture", number(capture.on) + number(capture.listingState) + Head(capture.buffer)},
        {"clip", Head(ClipboardText())}, {"connected", number(linkStatus.linkConnected)},
        {"dark", number(terminalSettings.darkBackground)}, {"ending", lineEnding.name},
        {"exit", number(exitRequested)}, {"family", uploadOptions.familyName},
        {"file", Head(ScratchFolder::Get("saved.txt"))},
        {"font", number(terminalSettings.fontSize)},
        {"frame", lit == (FocusedGadget() == kTerminalCanvas) ? "" : "wrong"}, {"line", LastLine()},
        {"macros", number(static_cast<int>(macroList.size()))},
        {"mode", number(terminalMode) + GadgetText(kModeText)},
        {"mouse", number(mouseMode) + number(GadgetState(kMouseButton))},
        {"nick", GadgetText(kNicknameEntry)}, {"open", OpenWindows()},
        {"override", number(uploadSettings.overrideFileSettings)},
        {"pico", uploadSettings.picoPort}, {"port", linkSettings.comPort},
        {"presets", number(static_cast<int>(presetList.size()))},
        {"quiet", number(linkStatus.quietTerminal)},
        {"resize", number(terminalSettings.allowResize)}, {"rows", mainWindowPlace.linesToShow},
        {"size", number(terminalScreen.cols) + "x" + number(terminalScreen.rows)},
        {"source", uploadSource.text}, {"spec", GadgetText(kSpecEntry)},
        {"speed", linkSettings.serialSpeed},
        {"tcp", number(linkStatus.deviceOnTcpip) + number(GadgetHidden(kSpeedCombo)) +
            number(!GadgetHidden(kAddressEntry))},
        {"wrap", number(terminalSettings.wordWrap)},
    };
    // clang-format on
    for (int item = 1; item <= kLastModeItem; ++item)
        facts["tick" + number(item)] = number(MenuItemTick(item));
    return facts;
}

}  // namespace

std::string ShellRig::After(int32_t event, int64_t object, int64_t type, int window) {
    FocusGadget(kNicknameEntry);
    SetClipboardText("old");
    Drain();
    device.Read();
    const Facts before = State(asked);
    const int64_t start = clock.Now();
    PostInterfaceEvent(event, window, object, type);
    Drain();
    QString outcome =
        QString::fromStdString(device.Read()) + '@' + QString::number(FocusedGadget());
    for (const auto& [name, value] : State(asked)) {
        if (value != before.at(name)) outcome += ' ' + name + '=' + value;
    }
    if (clock.Now() != start) outcome += " ms=" + QString::number(clock.Now() - start);
    return outcome.toStdString();
}

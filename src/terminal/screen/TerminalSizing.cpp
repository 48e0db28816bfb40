#include "terminal/screen/TerminalSizing.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "terminal/screen/ColourScheme.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/windows/Dialogs.h"

namespace {

// What the user may type; the device and the settings file reach further.
constexpr int kFewestTypedCols = 11;
constexpr int kMostTypedCols = 149;
constexpr int kFewestTypedRows = 6;
constexpr int kMostTypedRows = 79;

bool windowIsToFit = false;

int HeldSide(int asked, int present, int most) {
    return asked <= 0 ? present : std::min(asked, most);
}

bool Between(int64_t value, int least, int most) {
    return value >= least && value <= most;
}

// "80X24", "80 x 24" and "80 24" all come to "80 24".
QString SizeFields(QString answer) {
    answer = ReplaceAnyCase(answer, "x ", " ");
    answer = ReplaceAnyCase(answer, " x", " ");
    answer = ReplaceAnyCase(answer, "x", " ");
    return answer.replace("  ", " ").replace("  ", " ");
}

}  // namespace

void SetUpTerminal() {
    SetScreenSize(HeldSide(terminalSettings.cols, terminalScreen.cols, kLastColumn),
                  HeldSide(terminalSettings.rows, terminalScreen.rows, kMostRows));
    SetScrollBackLimits(terminalSettings.scrollBack, terminalSettings.maxLineLength);
    SetSchemeColours();
    LoadTerminalFonts();
    ClearTerminal(kTerminalCanvas);
}

int SetTerminalSize(int cols, int rows) {
    cols = HeldSide(cols, terminalScreen.cols, kLastColumn);
    rows = HeldSide(rows, terminalScreen.rows, kMostRows);
    if (cols == terminalScreen.cols && rows == terminalScreen.rows) return 0;
    SetScreenSize(cols, rows);
    SetAskedSize(cols, rows);
    MeasureTerminal();
    return 1;
}

void ApplyTerminalSize() {
    ClearTerminal(kTerminalCanvas);
    RepaintAtFullSize();
    windowIsToFit = true;
    if (!FeedUnderWay()) FinishResize();
}

void FinishResize() {
    if (windowIsToFit) FitMainWindow();
    windowIsToFit = false;
}

void AskTerminalSize() {
    const QString present =
        QString::number(terminalScreen.cols) + " x " + QString::number(terminalScreen.rows);
    const QString answer = AskText("New size", "Enter new terminal size W x H", present);
    if (answer.isEmpty()) return;
    const QString fields = SizeFields(answer);
    const int64_t cols = TextToInteger(FieldOf(fields, 1, ' '));
    const int64_t rows = TextToInteger(FieldOf(fields, 2, ' '));
    if (!Between(cols, kFewestTypedCols, kMostTypedCols)) return;
    if (!Between(rows, kFewestTypedRows, kMostTypedRows)) return;
    SetTerminalSize(static_cast<int>(cols), static_cast<int>(rows));
    ApplyTerminalSize();
}

void RestoreDefaultTerminalSize() {
    SetTerminalSize(terminalSettings.defaultCols, terminalSettings.defaultRows);
    ApplyTerminalSize();
}

void AskTerminalFont() {
    const FontChoice choice = AskFont(terminalSettings.fontName, terminalSettings.fontSize);
    if (!choice.accepted) return;
    SetTerminalFont(choice.name, choice.size);
    LoadTerminalFonts();
    ApplyTerminalSize();
}

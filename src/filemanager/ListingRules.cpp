#include "filemanager/ListingRules.h"

#include <QRegularExpression>

#include "base/TextRules.h"

namespace {

// A line and all that the rules know of it.
struct LineInContext {
    const QString& text;  // as it came
    QString seen;         // what a person sees of it
    bool complete;
    const DeviceFamily& family;
    bool savingProgram;

    bool Holds(const char* words) const { return text.contains(words, Qt::CaseInsensitive); }
    bool HoldsExactly(const char* words) const { return text.contains(words); }
    bool BeginsWith(const char* words) const {
        return text.startsWith(QLatin1String(words), Qt::CaseInsensitive);
    }
};

// Firmware puts sequences before its prompt, and between it and the echo of the command.
QString WithoutSequences(QString text) {
    static const QRegularExpression sequence("\x1b\\[[0-9;?]*[@-~]");
    return text.remove(sequence);
}

bool Pause(const LineInContext& line) {
    return line.Holds("PRESS ANY KEY");
}
bool CursorOn(const LineInContext& line) {
    return line.HoldsExactly("[?25h");
}
bool White(const LineInContext& line) {
    return line.HoldsExactly("[37m");
}
bool FolderEcho(const LineInContext& line) {
    return line.BeginsWith("chdir ");
}
bool ChangeEcho(const LineInContext& line) {
    return line.BeginsWith("kill ") || line.BeginsWith("mkdir ");
}
bool Error(const LineInContext& line) {
    return line.BeginsWith("error: ") || line.Holds("error : ");
}
bool SummaryOfFolders(const LineInContext& line) {
    return line.Holds(" directories") && line.Holds(" file");
}
bool SummaryOfFolder(const LineInContext& line) {
    return line.Holds(" directory") && line.Holds(" file");
}
// A family without a list command has no such echo.
bool ListEcho(const LineInContext& line) {
    const QString& command = line.family.filesCMD;
    return !command.isEmpty() && line.seen.contains("> " + command);
}
bool FlashEcho(const LineInContext& line) {
    return line.family.flash != 0 &&
           (line.Holds("flash list") || line.Holds("flash save") || line.Holds("list all"));
}
bool FlashChangeEcho(const LineInContext& line) {
    return line.family.flash != 0 && (line.Holds("flash erase") || line.Holds("flash overwrite"));
}
bool Prompt(const LineInContext& line) {
    return line.text.startsWith('>');
}
// Colours alone, or a prompt behind them with whatever was typed there. As a row it would
// count as one slot too many in flash view.
bool PromptBehindColours(const LineInContext& line) {
    return line.seen.isEmpty() || line.seen.startsWith('>');
}
bool Saving(const LineInContext& line) {
    return line.savingProgram;
}
bool Complete(const LineInContext& line) {
    return line.complete;
}

struct Rule {
    bool (*fits)(const LineInContext& line);
    ListingAction action;
};

// clang-format off
const Rule rules[] = {
    {Pause,            ListingAction::kGoOn},
    {CursorOn,         ListingAction::kEmptyBuffer},
    {White,            ListingAction::kIgnore},
    {FolderEcho,       ListingAction::kIgnore},
    {ChangeEcho,       ListingAction::kEmptyBuffer},
    {Error,            ListingAction::kPrint},
    {SummaryOfFolders, ListingAction::kAwaitEnd},
    {SummaryOfFolder,  ListingAction::kAwaitEnd},
    {ListEcho,         ListingAction::kIgnore},
    {FlashEcho,        ListingAction::kIgnore},
    {FlashChangeEcho,  ListingAction::kEmptyBuffer},
    {Prompt,           ListingAction::kEnd},
    {PromptBehindColours, ListingAction::kIgnore},
    {Saving,           ListingAction::kCapture},
    {Complete,         ListingAction::kAddEntry},
};
// clang-format on

}  // namespace

ListingAction SortListingLine(const ListingLine& line, const DeviceFamily& family,
                              bool savingProgram) {
    if (line.text.isEmpty()) return ListingAction::kIgnore;
    const QString seen = TrimBlanks(WithoutSequences(line.text));
    const LineInContext known = {line.text, seen, line.complete, family, savingProgram};
    for (const Rule& rule : rules) {
        if (rule.fits(known)) return rule.action;
    }
    return ListingAction::kNone;
}

#include "shell/ActionMenu.h"

#include <QString>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/LinkPrimitives.h"
#include "ui/gadgets/Gadgets.h"

namespace {

struct ActionRow {
    int item;
    const char* mask;  // date codes of FormatDate stand for now; "\n" for the line ending
    bool focus;
};

// The clock commands differ on purpose from those of an upload: capital "Date$" in two
// lines, and a two-digit year without blanks.
// clang-format off
const ActionRow actionRows[] = {
    {kItemSetTime,    "Date$ = \"%dd/%mm/%yyyy\"\nTime$ = \"%hh:%ii:%ss\"\n", true},
    {kItemSetRtc,     "RTC SETTIME %yy,%mm,%dd,%hh,%ii,%ss\n",                true},
    {kItemNew,        "NEW\n",                                                true},
    {kItemListAll,    "LIST ALL\n",                                           false},
    {kItemOptionList, "OPTION LIST\n",                                        true},
    {kItemFiles,      "FILES\n",                                              true},
    {kItemRun,        "RUN\n",                                                true},
};
// clang-format on

}  // namespace

void SendActionCommand(int item) {
    for (const ActionRow& row : actionRows) {
        if (row.item != item) continue;
        SendText(FormatDate(row.mask, WallClock()).replace("\n", lineEnding.bytes));
        if (row.focus) FocusGadget(kTerminalCanvas);
    }
}

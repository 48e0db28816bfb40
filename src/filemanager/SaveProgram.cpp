#include "filemanager/SaveProgram.h"

#include <QFileInfo>

#include "base/EightBitText.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"

namespace {

// With its extension; empty for none.
QString AskName() {
    const QString preset = GadgetText(kPcList) + "*.bas";
    QString path = AskSaveFile("Save", preset, kSourcePatterns, OverwriteQuestion::kByCaller).path;
    if (!path.isEmpty() && ExtensionPart(path).isEmpty()) path += ".bas";
    return path;
}

bool MayWrite(const QString& path) {
    return !QFileInfo::exists(path) ||
           AskMessage("File exists", "Do you wish to overwrite it?", MessageButtons::kYesNo);
}

}  // namespace

void SaveProgram(const QString& text) {
    const QString path = AskName();
    if (path.isEmpty() || !MayWrite(path)) return;
    WriteEightBitText(path, text);
}

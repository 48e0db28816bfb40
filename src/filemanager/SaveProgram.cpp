#include "filemanager/SaveProgram.h"

#include <QFile>
#include <QFileInfo>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "ui/Dialogs.h"
#include "ui/Gadgets.h"

namespace {

const char kPatterns[] = "Basic (*.bas)|*.bas|Text (*.txt)|*.txt|All files (*.*)|*.*";

// With its extension; empty for none.
QString AskName() {
    const QString preset = GadgetText(kPcList) + "*.bas";
    QString path = AskSaveFile("Save", preset, kPatterns, OverwriteQuestion::kByCaller).path;
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
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(text.toLatin1());
}

#include "upload/LoadPath.h"

#include "base/TextRules.h"
#include "link/SerialPort.h"
#include "terminal/screen/TerminalScreen.h"
#include "upload/SourceFile.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"

void LoadPath(const QString& path) {
    if (path.isEmpty()) return;
    TerminalPrintLine(path);
    // A firmware image is not read: opening the port at 1200 baud is all there is to do.
    if (ExtensionPart(path).toLower() == "uf2") return SerialTouch1200();
    SetCurrentFile(path);
    SetUploadText(ReadSourceFile(path));
    UploadProgram();
}

void StorePath(const QString& path) {
    SetStoreOnly(true);
    LoadPath(path);
    SetStoreOnly(false);
}

#include "upload/OnloadLine.h"

#include "base/TextRules.h"
#include "upload/DeviceSpec.h"
#include "upload/SourcePreparation.h"
#include "upload/SpecText.h"
#include "upload/UploadMethod.h"
#include "upload/UploadOptions.h"

namespace {

// Lower-cased, with one blank behind its last word. Names on it are lower-cased with it.
QString OnloadLineOf(const QString& text) {
    QString line = FirstLineOf(text).toLower();
    line.remove('\r');
    return line + ' ';
}

void ReadFlags(const QString& line) {
    UploadOptions& options = EditUploadOptions();
    if (line.contains(" settime")) options.setTime = true;
    if (line.contains(" setrtc")) options.setRtc = true;
    if (line.contains(" norun")) options.noRun = true;
}

// "*" stands for the name of the file being loaded, in its own capitals.
QString DeviceFileOf(const QString& line) {
    const QString mark = line.contains(" file/") ? " file/" : " file\\";
    const int found = line.indexOf(mark);
    if (found < 0) return "temp.bas";
    const QString name = WordAt(line, found + mark.size());
    return name == "*" ? NamePart(uploadSource.currentFile) : name;
}

// Here a norun before or behind the family word means the same.
void ReadCmm2(const QString& line) {
    if (!line.contains(" cmm2")) return;
    const bool saveOnly = uploadOptions.noRun;
    TakeFamily("cmm2", DeviceFileOf(line));
    if (saveOnly) EditUploadOptions().autosaveEnd = kSaveCode;
}

// In this order; the last that fits wins.
void ReadFamilies(const QString& line) {
    if (line.contains(" maximite")) TakeFamily("maximite", QString());
    ReadCmm2(line);
    for (const char* word : {"pi-cromite", "micromite", "command", "picomite"}) {
        if (line.contains(QString(" ") + word)) TakeFamily(word, QString());
    }
}

// A name and a speed, as in com3:38400.
void ReadPort(const QString& line) {
    const int found = line.indexOf(" com");
    if (found >= 0) SetPortAndSpeed(WordAt(line, found + 1));
}

}  // namespace

QString ApplyOnloadLine(const QString& text) {
    EditUploadOptions().familyName = "micromite";
    const QString line = OnloadLineOf(text);
    const QString source = line.contains(" crunch") ? CrunchSource(text) : text;
    ReadFlags(line);
    ReadFamilies(line);
    if (line.contains(" nonew")) EditUploadOptions().noNew = true;
    ReadPort(line);
    // An upload of this form always disconnects at its end.
    EditUploadOptions().disconnectAfter = true;
    return source;
}

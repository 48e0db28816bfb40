#include "upload/UploadMethod.h"

#include "base/TextRules.h"
#include "upload/UploadOptions.h"

namespace {

struct FamilyMethod {
    const char* word;        // as a specification names the family
    const char* familyName;  // as the program names it
    const char* start;       // opens receive mode; null: AUTOSAVE into a named file
    const char* end;         // closes it
    bool noRun;
    bool noNew;
};

// clang-format off
const FamilyMethod familyMethods[] = {
    // word         family        start       end              noRun  noNew
    {"micromite",  "micromite",  "AUTOSAVE", kEndOfTextCode,  false, false},
    {"vgamite",    "vgamite",    "AUTOSAVE", kEndOfTextCode,  false, false},
    {"maximite",   "maximite",   "AUTO",     kBreakCode,      false, false},
    {"cmm2",       "cmm2",       nullptr,    kSaveAndRunCode, true,  false},
    {"pi-cromite", "pi-cromite", "AUTOSAVE", kBreakCode,      false, false},
    {"pi",         "pi-cromite", "AUTOSAVE", kBreakCode,      false, false},
    {"picomite",   "picomite",   "AUTOSAVE", kEndOfTextCode,  false, false},
    {"pico",       "picomite",   "AUTOSAVE", kEndOfTextCode,  false, false},
    {"command",    "command",    "",         "",              true,  true},
    {"cmd",        "command",    "",         "",              true,  true},
};
// clang-format on

}  // namespace

void ResetMethod() {
    UploadOptions fresh;
    fresh.familyName = uploadOptions.familyName;
    fresh.disconnectAfter = uploadOptions.disconnectAfter;
    EditUploadOptions() = fresh;
}

void TakeFamily(const QString& word, const QString& deviceFile) {
    UploadOptions& options = EditUploadOptions();
    options.familyName = word;
    for (const FamilyMethod& method : familyMethods) {
        if (word != method.word) continue;
        options.familyName = method.familyName;
        options.autosaveStart = method.start ? QString(method.start) : AutosaveInto(deviceFile);
        options.autosaveEnd = method.end;
        // A family adds these flags; none takes away what another word set.
        options.noRun = options.noRun || method.noRun;
        options.noNew = options.noNew || method.noNew;
        return;
    }
}

void LeaveOutRun() {
    UploadOptions& options = EditUploadOptions();
    options.noRun = true;
    if (options.familyName == "cmm2") options.autosaveEnd = kSaveCode;
}

QString AutosaveInto(const QString& deviceFile) {
    return "AUTOSAVE \"" + deviceFile + "\"";
}

QString DeviceFileName() {
    const QString name = NamePart(uploadSource.currentFile);
    return name.isEmpty() ? QString("temp.bas") : name;
}

#include "upload/UploadOptions.h"

#include "encoding/SecretBytes.h"

namespace {

UploadOptions options;
UploadSettings settings;
UploadSource source;

}  // namespace

const UploadOptions& uploadOptions = options;
const UploadSettings& uploadSettings = settings;
const UploadSource& uploadSource = source;

UploadSettings& UploadSettingsForTable() {
    return settings;
}
UploadOptions& EditUploadOptions() {
    return options;
}

void SetOverrideFileSettings(bool on) {
    settings.overrideFileSettings = on ? 1 : 0;
}
void SetPicoPort(const QString& name) {
    settings.picoPort = name;
}
void SetWarnFlashCopy(bool on) {
    settings.warnFlashCopy = on ? 1 : 0;
}
void SetUploadText(const QString& text) {
    ReplaceText(source.text, text);
}
void SetCurrentFile(const QString& path) {
    source.currentFile = path;
}
void SetPasteSource(bool pasted) {
    source.pasteSource = pasted;
}
void SetStoreOnly(bool only) {
    source.storeOnly = only;
}

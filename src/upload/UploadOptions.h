// The live options of an upload, as the last device specification set them.
#pragma once

#include <QString>

struct UploadOptions {
    QString familyName;
    QString autosaveStart = "AUTOSAVE";        // command that opens receive mode
    QString autosaveEnd = QString(QChar(26));  // the bytes that close it
    bool noRun = false;
    bool noNew = false;
    bool setTime = false;
    bool setRtc = false;
    bool disconnectAfter = false;
};

struct UploadSettings {
    int overrideFileSettings = 0;
    int autosaveEndDelay = 1500;   // milliseconds
    QString picoPort = "not set";  // written for picomite boards; nothing opens it
    QString textTypes = "bas txt inc";
    int useXmodemForDrop = 1;
    int warnFlashCopy = 1;
};

struct UploadSource {
    QString text;              // what UploadProgram works on; one character a byte of the file
    QString currentFile;       // path of the file being loaded; empty for pasted text
    bool pasteSource = false;  // from the clipboard or a drop, not from a file
    bool storeOnly = false;    // is not to be run, whatever the options say
};

extern const UploadOptions& uploadOptions;
extern const UploadSettings& uploadSettings;
extern const UploadSource& uploadSource;

UploadSettings& UploadSettingsForTable();  // for the settings table alone
UploadOptions& EditUploadOptions();        // the one way to write them

void SetOverrideFileSettings(bool on);
void SetPicoPort(const QString& name);
void SetWarnFlashCopy(bool on);
void SetUploadText(const QString& text);  // the text of before is overwritten
void SetCurrentFile(const QString& path);
void SetPasteSource(bool pasted);
void SetStoreOnly(bool only);

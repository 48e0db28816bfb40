#include "upload/DeviceSpec.h"

#include <vector>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "encoding/SecretBytes.h"
#include "link/Connection.h"
#include "link/LinkSettings.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Notice.h"
#include "upload/SourcePreparation.h"
#include "upload/SpecText.h"
#include "upload/UploadMethod.h"
#include "upload/UploadOptions.h"

namespace {

constexpr int kPortChangeNoticeMs = 2000;

struct OptionWord {
    QString key;    // as written; matched without regard to case
    QString value;  // empty for a word without "\"
};

// What one parse works on beside the live options.
struct SpecRun {
    QString text;        // what was given, crunched once a word asks for it
    QString deviceFile;  // name for a family that stores the program in a file
    QString portName;    // of the last port word, empty for none
};

// The part of the first line that holds the words. A second comment mark ends
// it. A line without a directive word is read from its first character.
QString SpecificationOf(const QString& text) {
    QString line = FirstLineOf(text);
    int start = line.indexOf("' target");
    if (start < 0) start = line.indexOf("'target");
    if (start > 0) line.remove(0, start);
    const int secondMark = line.indexOf('\'', 1);
    if (secondMark > 0) line.truncate(secondMark);
    line = TrimBlanks(line) + ' ';
    for (int pass = 0; pass < 3; ++pass) line = MergeBlankPairs(line);
    return line;
}

// Reads up to the first empty field. Three passes leave a double blank of nine blanks or
// more, and the words behind it are lost; that is meant.
std::vector<OptionWord> ReadOptionWords(const QString& specification) {
    std::vector<OptionWord> words;
    int start = 0;
    for (QString word; !(word = WordAt(specification, start)).isEmpty(); start += word.size() + 1) {
        words.push_back({FieldOf(word, 1, '\\'), FieldOf(word, 2, '\\')});
    }
    return words;
}

void TakeFamilyWord(const QString& value, SpecRun& run) {
    TakeFamily(value.toLower(), run.deviceFile);
    SetGadgetText(kFamilyCombo, uploadOptions.familyName);
}

// At its place in the line: lines end in the line ending of the words before.
void TakeCrunch(const QString&, SpecRun& run) {
    ReplaceText(run.text, CrunchSource(run.text));
}
void TakeSetTime(const QString&, SpecRun&) {
    EditUploadOptions().setTime = true;
}
void TakeSetRtc(const QString&, SpecRun&) {
    EditUploadOptions().setRtc = true;
}
void TakeNoNew(const QString&, SpecRun&) {
    EditUploadOptions().noNew = true;
}
void TakeDisconnect(const QString&, SpecRun&) {
    EditUploadOptions().disconnectAfter = true;
}

// Order counts: the family word sets the end code anew, so only a norun behind it makes
// the device store the program without running it.
void TakeNoRun(const QString&, SpecRun&) {
    LeaveOutRun();
}

// "no" keeps the automatic name.
void TakeFile(const QString& value, SpecRun&) {
    if (uploadOptions.familyName != "cmm2" || value == "no") return;
    EditUploadOptions().autosaveStart = AutosaveInto(value);
}

// A link to something other than `endpoint` is closed before the endpoint changes.
void LeaveOtherLink(const QString& endpoint) {
    if (linkStatus.linkLabel.isEmpty() || linkStatus.linkLabel == endpoint) return;
    DisconnectDevice();
    ShowNotice("Port Changed!\ndisconnecting first.", kPortChangeNoticeMs);
}

void TakePort(const QString& value, SpecRun& run) {
    LeaveOtherLink(value);
    SetPortAndSpeed(value);
    SetDeviceOnTcpip(false);
    run.portName = FieldOf(value, 1, ':');
}

void TakeAddress(const QString& value, SpecRun&) {
    LeaveOtherLink(value);
    SetTcpEndpoint(FieldOf(value, 1, ':'), FieldOf(value, 2, ':'));
    SetGadgetText(kAddressEntry, value);
    SetDeviceOnTcpip(true);
}

// Any other value, and none, is LF.
void TakeLineEnding(const QString& value, SpecRun&) {
    const LineEndingRow* chosen = kLineEndings;
    while (chosen->item != kItemLineEndingLf && value.toUpper() != chosen->name) ++chosen;
    SetLineEnding(chosen->name);
    TickOneOf(kItemLineEndingCrLf, kItemLineEndingLf, chosen->item);
}

struct OptionRow {
    const char* key;
    void (*take)(const QString& value, SpecRun& run);
};

// "dev" is a word of the grammar that does nothing, as any unknown word; so it has no row.
const OptionRow optionRows[] = {
    {"s", TakeFamilyWord},    {"syn", TakeFamilyWord},    {"crunch", TakeCrunch},
    {"settime", TakeSetTime}, {"setrtc", TakeSetRtc},     {"norun", TakeNoRun},
    {"nonew", TakeNoNew},     {"file", TakeFile},         {"port", TakePort},
    {"ip", TakeAddress},      {"discon", TakeDisconnect}, {"le", TakeLineEnding},
};

void ApplyOption(const OptionWord& word, SpecRun& run) {
    const QString key = word.key.toLower();
    for (const OptionRow& row : optionRows) {
        if (key == row.key) row.take(word.value, run);
    }
}

}  // namespace

QString ApplyDeviceSpec(const QString& text) {
    SpecRun run;
    run.text = text + '\n';
    run.deviceFile = DeviceFileName();
    const std::vector<OptionWord> optionList = ReadOptionWords(SpecificationOf(run.text));
    // The family, the line ending and the link outlive a specification; these do not.
    ResetMethod();
    EditUploadOptions().disconnectAfter = false;
    for (const OptionWord& word : optionList) ApplyOption(word, run);
    if (uploadOptions.familyName == "picomite") SetPicoPort(run.portName);
    return run.text;
}

void SetPortAndSpeed(const QString& text) {
    SetComPort(TrimBlanks(FieldOf(text, 1, ':')));
    SetSerialSpeed(TrimBlanks(FieldOf(text, 2, ':')));
    SetGadgetText(kSpeedCombo, linkSettings.serialSpeed);
    SetGadgetText(kPortCombo, linkSettings.comPort);
}

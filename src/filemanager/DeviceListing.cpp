#include "filemanager/DeviceListing.h"

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "filemanager/ListingRules.h"
#include "filemanager/SaveProgram.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/SourcePreparation.h"

namespace {

// Milliseconds.
constexpr int64_t kBetweenReturns = 20;
constexpr int64_t kAroundCommand = 200;
constexpr int64_t kBeforeNextPage = 100;

constexpr int64_t kBreak = 3;  // the byte that stops what the device runs

const char kCursorOn[] = "\x1b[?25h";

DeviceListing listing;

// Of a line whose beginning was dropped the rest is no row, in however many pieces it comes.
QString WithoutDroppedRest(const QString& text) {
    if (!listing.dropRestOfLine) return text;
    const int end = text.indexOf('\n');
    listing.dropRestOfLine = end < 0;
    return end < 0 ? QString() : text.mid(end);
}

// What stood behind the last line end goes with its whole line: of a prompt, too, whose
// rest is the echo of the next command.
void EmptyBuffer() {
    QString& buffer = listing.listingBuffer;
    listing.dropRestOfLine = !buffer.isEmpty() && !buffer.endsWith('\n');
    buffer.clear();
}

// A line that never ends loses its rest, not the program its memory.
void Collect(const QString& text) {
    listing.listingBuffer += WithoutDroppedRest(NormaliseLineEndings(text));
    listing.listingBuffer.remove(kCursorOn);
    const int lastEnd = listing.listingBuffer.lastIndexOf('\n');
    listing.listingBuffer.truncate(lastEnd + 1 + kLongestListingLine);
}

// Without a line end the whole buffer is the line, and it stays to be seen again with the
// next chunk. A line end that is the buffer's last character goes with its line: nothing
// stands behind it that could be lost.
ListingLine TakeLine() {
    QString& buffer = listing.listingBuffer;
    const int end = buffer.indexOf('\n');
    if (end < 0) return {buffer, false};
    const ListingLine line = {TrimBlanks(buffer.left(end)), true};
    buffer.remove(0, end + 1);
    return line;
}

// Polling goes on here for the length of a pause: this one wait is what it is kept from.
void AskForNextPage() {
    SetPollingSuspended(false);
    SleepMs(kBeforeNextPage);
    SendText(lineEnding.bytes);
}

void Capture(const QString& line) {
    if (listing.programCapture.size() + line.size() > kLargestProgramCapture) return;
    listing.programCapture += line + lineEnding.bytes;
}

void AddEntry(const QString& line) {
    if (listing.deviceEntries.size() < kMostDeviceEntries) listing.deviceEntries += line;
}

void ShowRows() {
    ClearGadgetItems(kDeviceList);
    for (const QString& entry : listing.deviceEntries) AddGadgetItem(kDeviceList, entry);
}

void EndListing() {
    EmptyBuffer();
    if (listing.savingProgram) {
        SaveProgram(listing.programCapture);
        listing.programCapture.clear();
    } else {
        ShowRows();
    }
    listing.savingProgram = false;
    SetPollingSuspended(false);
}

// A board stops inside its summary line while it counts the free bytes. "> " stands for
// the prompt that follows.
void AwaitEnd() {
    EmptyBuffer();
    listing.listingBuffer = "> ";
}

void Act(ListingAction action, const ListingLine& line) {
    switch (action) {
        case ListingAction::kNone:
        case ListingAction::kIgnore:
            return;
        case ListingAction::kGoOn:
            return AskForNextPage();
        case ListingAction::kEmptyBuffer:
            return EmptyBuffer();
        case ListingAction::kPrint:
            return TerminalPrintLine(line.text);
        case ListingAction::kAwaitEnd:
            return line.complete ? EndListing() : AwaitEnd();
        case ListingAction::kEnd:
            return EndListing();
        case ListingAction::kCapture:
            return Capture(line.text);
        case ListingAction::kAddEntry:
            return AddEntry(line.text);
    }
}

// Clears whatever stands on the device's line. On a slow line the answer is cut anywhere.
void ClearDeviceLine() {
    listing.listingBuffer += SendAndWait("\r", 0);
    SleepMs(kBetweenReturns);
    listing.listingBuffer += SendAndWait("\r", 0);
    EmptyBuffer();
}

// The caption names where a press would go.
void ShowFlashCaption() {
    SetGadgetText(kFlashViewButton, listing.flashView ? "SDcard" : "memory");
}

void SendListCommand(const QString& command) {
    SleepMs(kAroundCommand);
    SendText(command + lineEnding.bytes);
    SleepMs(kAroundCommand);
}

}  // namespace

const DeviceListing& deviceListing = listing;

DeviceFamily ShownFamily() {
    const QString shown = GadgetText(kFamilyCombo);
    if (const DeviceFamily* family = FindFamily(shown)) return *family;
    DeviceFamily plain;
    plain.Fname = shown;
    plain.drives = 1;
    plain.filesCMD = "files";
    return plain;
}

void StartDeviceRows(const QString& first) {
    ClearGadgetItems(kDeviceList);
    listing.deviceEntries = QStringList(first);
    AddGadgetItem(kDeviceList, first);
}

void RefreshDeviceList() {
    const DeviceFamily family = ShownFamily();
    if (family.drives == 0) listing.flashView = true;
    ClearDeviceLine();
    ShowFlashCaption();
    if (!linkStatus.linkConnected) return;
    StartDeviceRows(listing.flashView ? "current program" : "..");
    SendText(ByteText(kBreak));
    if (listing.flashView && family.flash == 0) return;
    SendListCommand(listing.flashView ? "flash list" : family.filesCMD);
}

void ToggleFlashView() {
    listing.flashView = !listing.flashView;
    RefreshDeviceList();
}

void RequestProgram(int slot) {
    listing.savingProgram = true;
    listing.dropRestOfLine = false;
    const QString command = slot == 0 ? QString("list all") : "flash list " + QString::number(slot);
    SendText(command + lineEnding.bytes);
}

void ParseListingChunk(const QString& text) {
    SetPollingSuspended(true);
    Collect(text);
    const DeviceFamily family = ShownFamily();
    ListingLine line;
    do {
        line = TakeLine();
        Act(SortListingLine(line, family, listing.savingProgram), line);
    } while (line.complete);
    SetPollingSuspended(false);
}

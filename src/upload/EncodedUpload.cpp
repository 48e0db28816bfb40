#include "upload/EncodedUpload.h"

#include "base/TextRules.h"
#include "base/WholeFile.h"
#include "encoding/EncodedSource.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/windows/Dialogs.h"
#include "upload/SourcePreparation.h"
#include "upload/SpecText.h"
#include "upload/UploadOptions.h"

namespace {

const QString kEncodedMagic = "KWHEX";
const QString kEncodeDirective = "'encode";
const QString kEncodedExtension = "bae";
const QString kDialogTitle = "Encoded source";
constexpr int kPassphraseTries = 3;

struct FaultLine {
    EncodedFault fault;
    const char* line;
};

const FaultLine kFaultLines[] = {
    {EncodedFault::kUnknown, "This is not an encoded source, or one of a form not known here."},
    {EncodedFault::kDamaged, "The encoded source is cut or changed."},
    {EncodedFault::kTooCostly,
     "The encoded source asks for a key that costs more than is allowed."},
    {EncodedFault::kTooLarge, "The source is larger than 16 MB: too large for an encoded one."},
    {EncodedFault::kRefused, "Wrong passphrase, or the encoded source was changed."},
    {EncodedFault::kNoMemory, "There is not enough memory to make the key."},
};
static_assert(kLargestEncodedText == 16 * 1024 * 1024, "as the line says");

// True when there is no fault.
bool Passes(EncodedFault fault) {
    for (const FaultLine& row : kFaultLines) {
        if (row.fault == fault) TerminalPrintLine(row.line);
    }
    return fault == EncodedFault::kNone;
}

bool AsksForEncoding(const QString& line) {
    return TrimBlanks(line).toLower().startsWith(kEncodeDirective);
}

// Behind the lines that ask for it: decoded, the source is to be uploaded, not written again.
int StartOfTextToEncode(const QString& text) {
    int start = 0;
    while (start < text.size()) {
        int end = text.indexOf('\n', start);
        if (end < 0) end = text.size();
        if (!AsksForEncoding(text.mid(start, end - start))) break;
        start = BehindMarkerLines(text, end + 1);
    }
    return start;
}

// Empty for a pasted source, and for a file that has the name itself.
QString EncodedPath() {
    const QString& path = uploadSource.currentFile;
    const QString extension = ExtensionPart(path);
    if (path.isEmpty() || extension.toLower() == kEncodedExtension) return QString();
    const QString stem = extension.isEmpty() ? path : path.left(path.size() - extension.size() - 1);
    return stem + '.' + kEncodedExtension;
}

// Empty, with a line in the terminal, unless the same was typed twice.
SecretBytes AskNewPassphrase() {
    QString first = AskSecret(kDialogTitle, "Passphrase");
    QString second = first.isEmpty() ? QString() : AskSecret(kDialogTitle, "The same once more");
    const bool same = first == second;
    WipeText(second);
    const SecretBytes passphrase = TakePassphrase(first);
    if (passphrase.empty()) TerminalPrintLine("No passphrase: nothing was written.");
    if (!same) TerminalPrintLine("The passphrases differ: nothing was written.");
    return same ? passphrase : SecretBytes();
}

// True when the file was opened. A passphrase that is not the one is asked for again.
bool OpenByPassphrase(const EncodedSource& source, SecretBytes& plain) {
    const QString prompt = "Passphrase of " + NamePart(uploadSource.currentFile);
    EncodedFault fault = EncodedFault::kRefused;
    for (int i = 0; i < kPassphraseTries && fault == EncodedFault::kRefused; ++i) {
        QString typed = AskSecret(kDialogTitle, prompt);
        const SecretBytes passphrase = TakePassphrase(typed);
        if (passphrase.empty()) {
            TerminalPrintLine("No passphrase: nothing was decoded.");
            return false;
        }
        fault = OpenEncodedSource(source, passphrase, plain);
        Passes(fault);
    }
    return fault == EncodedFault::kNone;
}

}  // namespace

bool SourceIsEncoded() {
    return !uploadSource.pasteSource && uploadSource.text.startsWith(kEncodedMagic);
}

bool DecodeSource() {
    EncodedSource source;
    if (!Passes(ParseEncodedSource(uploadSource.text.toLatin1(), source))) return false;
    SecretBytes plain;
    if (!OpenByPassphrase(source, plain)) return false;
    TerminalPrintLine(plain.empty() ? "Nothing to load." : "Source decoded");
    SetUploadText(TextFromSecret(plain));
    return !plain.empty();
}

bool SourceAsksForEncoding() {
    return AsksForEncoding(FirstLineOf(uploadSource.text));
}

void WriteEncodedSource() {
    const QString path = EncodedPath();
    if (path.isEmpty()) {
        TerminalPrintLine("No file to write beside: nothing was encoded.");
        return;
    }
    const QString& text = uploadSource.text;
    const SecretBytes plain = SecretFromText(text.midRef(StartOfTextToEncode(text)));
    if (plain.empty()) {
        TerminalPrintLine("Nothing to encode.");
        return;
    }
    const SecretBytes passphrase = AskNewPassphrase();
    if (passphrase.empty()) return;
    QByteArray file;
    if (!Passes(SealEncodedSource(NewEncodedHeader(), passphrase, plain, file))) return;
    TerminalPrintLine(WriteWholeFile(path, file) ? "Encoded as " + path
                                                 : path + " could not be written.");
}

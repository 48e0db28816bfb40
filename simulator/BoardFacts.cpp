#include "simulator/BoardFacts.h"

#include "simulator/BoardText.h"

namespace simulator {

namespace {

// Columns: baud, ring, seven bits, restart ms, telnet.
const LineFacts kUsbLine = {0, 65536, false, 1500, false};
const LineFacts kMaximiteLine = {0, 65536, false, 1500, false};
const LineFacts kMicromiteLine = {38400, 256, true, 0, false};
const LineFacts kPiLine = {0, 65536, false, 0, false};
const LineFacts kUartLine = {115200, 256, false, 0, false};
const LineFacts kTelnetLine = {0, 4096, false, 0, true};

constexpr BoardEditor kFull = BoardEditor::kFull;
constexpr BoardEditor kPlain = BoardEditor::kPlain;
constexpr BoardErrorStyle kSource = BoardErrorStyle::kSourceLine;
constexpr BoardErrorStyle kInLine = BoardErrorStyle::kInLine;
constexpr BoardLanguage kBasic = BoardLanguage::kBasic;

// clang-format off
// The plain PicoMite waits 200 ms for its second core before it prints an error.
// Columns: tail, loud lead, loud CRLF, listing is loud, error lead, the same at the prompt,
// style, error delay, editor, INPUT skips LF, PIN delay, soft sign-on, start-up sequence.
const PromptFacts kPrompt603 =
    {"\x1b[?7h", "\x1b[?25h\x1b[97;40m", false, false, "Error : ", "Error : ",
     kSource, 200, kFull, true, 3000, false, ""};
const PromptFacts kPrompt602 =
    {"", "\x1b[?25h\x1b[97;40m", false, false, "Error : ", "Error : ",
     kSource, 200, kFull, false, 3000, false, ""};
const PromptFacts kPrompt600 =
    {"", "\x1b[?25h", false, false, "Error : ", "Error : ",
     kSource, 200, kFull, false, 3000, true, ""};
const PromptFacts kPromptCmm2 =
    {"", "\x1b[?25h\x1b[37m\x1b[m", true, true, "Error in line ", "",
     kInLine, 0, kFull, false, 50, true, ""};
const PromptFacts kPromptArmmite =
    {"", "", false, false, "Error : ", "Error : ",
     kSource, 0, kFull, false, 3000, true, "\x1b[?1000l"};
const PromptFacts kPromptOld =
    {"", "", false, false, "Error: ", "Error: ",
     kSource, 0, kPlain, false, 3000, true, ""};
const PromptFacts kPromptMaximite =
    {"", "", false, false, "Error: ", "Error: ",
     kSource, 0, kPlain, false, -1, true, ""};
const PromptFacts kPromptShell =
    {"", "", false, false, "error: ", "error: ",
     kSource, 0, kPlain, false, -1, true, ""};

// Columns: word, end, name, held echo, AUTOSAVE N, "Saved", C and APPEND.
const ReceiveFacts kReceive603 = {
    "AUTOSAVE", BoardReceiveEnd::kCtrlZOrFunctionKey, false, true, true, true, true};
const ReceiveFacts kReceive600 = {
    "AUTOSAVE", BoardReceiveEnd::kCtrlZOrFunctionKey, false, true, false, true, true};
const ReceiveFacts kReceiveMicromite = {
    "AUTOSAVE", BoardReceiveEnd::kCtrlZ, false, false, false, true, false};
const ReceiveFacts kReceivePi = {"AUTOSAVE", BoardReceiveEnd::kCtrlC, false, false, false, true,
                                 false};
const ReceiveFacts kReceiveMaximite = {"AUTO", BoardReceiveEnd::kCtrlC, false, false, false, false,
                                       false};
const ReceiveFacts kReceiveCmm2 = {
    "AUTOSAVE", BoardReceiveEnd::kFunctionKey, true, false, true, false, false};
const ReceiveFacts kReceiveNone = {"", BoardReceiveEnd::kCtrlZ, false, false, false, false, false};

// Columns: word, layout, first page, next page, bytes free, new LIST pager, LIST page.
const ListingFacts kListing603 = {"FILES", BoardListing::kDated, 20, 21, true, true, 20};
const ListingFacts kListing600 = {"FILES", BoardListing::kDated, 21, 22, true, false, 22};
const ListingFacts kListingPicoCalc = {"FILES", BoardListing::kDated, 24, 25, true, true, 22};
const ListingFacts kListingCmm2 = {"LS", BoardListing::kDated, 50, 50, false, false, 48};
const ListingFacts kListingArmmite = {"FILES", BoardListing::kSized, 21, 22, false, false, 22};
const ListingFacts kListingNone = {"", BoardListing::kNameFirst, 0, 0, false, false, 22};
const ListingFacts kListingOld = {"FILES", BoardListing::kNameFirst, 21, 22, false, false, 22};

// Columns: CRC, start tries, start ms, resend ms, EOT ms, modern ending, last line.
const XmodemFacts kXmodem603 = {true, 60, 1000, 3000, 3000, true, "\r"};
const XmodemFacts kXmodemOld = {false, 32, 2000, 1000, 2000, false, ""};

// Columns: NEW, save, slot (all ms), slots, program memory. The times are estimates.
const FlashFacts kFlashPico = {350, 450, 1500, 3, 122880};
const FlashFacts kFlashCmm2 = {10, 60, 0, 0, 512 * 1024};
const FlashFacts kFlashMicromite = {250, 600, 0, 0, 50 * 1024};
const FlashFacts kFlashArmmite = {250, 450, 0, 0, 128 * 1024};
const FlashFacts kFlashRam = {0, 0, 0, 0, 100 * 1024};

// Columns after the texts: version, width, rows, statements/ms, language, LCD console,
// FAT, upper-cased names, then the groups: line, prompt, receive, listing, xmodem, flash.
const BoardFacts kRows[] = {
    {"picomite", "PicoMite (RP2350), firmware 6.03, USB console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", "PicoMite", 6.03, 80, 24, 40, kBasic, false, false,
     false, kUsbLine, kPrompt603, kReceive603, kListing603, kXmodem603, kFlashPico},
    {"picomite-6.02", "PicoMite (RP2040), firmware 6.02, USB console",
     "\rPicoMite MMBasic RP2040 Edition V6.02.00", "PicoMite", 6.02, 80, 24, 40, kBasic, false,
     false, false, kUsbLine, kPrompt602, kReceive600, kListing600, kXmodemOld, kFlashPico},
    {"picomite-6.00", "PicoMite (RP2040), firmware 6.00, USB console",
     "\rPicoMite MMBasic Version 6.00.00b5", "PicoMite", 6.00, 80, 24, 40, kBasic, false, false,
     false, kUsbLine, kPrompt600, kReceive600, kListing600, kXmodemOld, kFlashPico},
    {"picomite-uart", "PicoMite with USB keyboard, firmware 6.03, console on the UART",
     "\rPicoMite MMBasic USB RP2350A Edition V6.03.00RC25", "PicoMiteUSB", 6.03, 80, 24, 40, kBasic,
     false, false, false, kUartLine, kPrompt603, kReceive603, kListing603, kXmodem603, kFlashPico},
    {"picocalc", "PicoCalc: PicoMite 6.03 with a 40-column LCD console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", "PicoMite", 6.03, 40, 26, 40, kBasic, true, false,
     false, kUsbLine, kPrompt603, kReceive603, kListingPicoCalc, kXmodem603, kFlashPico},
    {"webmite", "WebMite (RP2040), firmware 6.03, telnet console over TCP",
     "\rWebMite MMBasic RP2040 Edition V6.03.00RC25", "WebMite", 6.03, 80, 24, 40, kBasic, false,
     false, false, kTelnetLine, kPrompt603, kReceive603, kListing603, kXmodem603, kFlashPico},
    {"cmm2", "Colour Maximite 2, firmware 6.00", "Colour Maximite 2 MMBasic Version 6.00.00",
     "Colour Maximite 2", 6.00, 100, 50, 200, kBasic, false, true, true, kUartLine, kPromptCmm2,
     kReceiveCmm2, kListingCmm2, kXmodemOld, kFlashCmm2},
    {"armmite", "Armmite, firmware 5.08", "Armmite MMBasic Version 5.08.00", "ARMmite", 5.08, 80,
     24, 100, kBasic, false, true, false, kUartLine, kPromptArmmite, kReceive600, kListingArmmite,
     kXmodemOld, kFlashArmmite},
    {"micromite", "Micromite (PIC32MX), 38400 baud, no drive", "Micromite MMBasic Ver 5.05.05",
     "Micromite MkII", 5.05, 80, 24, 10, kBasic, false, true, false, kMicromiteLine, kPromptOld,
     kReceiveMicromite, kListingNone, kXmodemOld, kFlashMicromite},
    {"micromite+", "Micromite Plus (PIC32MX470), 38400 baud, SD card",
     "Micromite Plus MMBasic Ver 5.05.05", "Micromite Plus", 5.05, 80, 24, 15, kBasic, false, true,
     false, kMicromiteLine, kPromptOld, kReceiveMicromite, kListingOld, kXmodemOld,
     kFlashMicromite},
    {"maximite", "The first Maximite, USB console, program text by AUTO",
     "Maximite MMBasic Ver 4.5", "Maximite", 4.5, 80, 36, 15, kBasic, false, true, false,
     kMaximiteLine, kPromptMaximite, kReceiveMaximite, kListingOld, kXmodemOld, kFlashRam},
    {"pi-cromite", "Pi-cromite on a Raspberry Pi", "Pi-cromite MMBasic Ver 5.40", "Pi-cromite",
     5.40, 80, 24, 200, kBasic, false, true, false, kPiLine, kPromptOld, kReceivePi, kListingOld,
     kXmodemOld, kFlashRam},
    {"command", "Any device with a plain command line", "Simulated command line, type help",
     "command", 1.0, 80, 24, 40, BoardLanguage::kShell, false, true, false, kPiLine, kPromptShell,
     kReceiveNone, kListingOld, kXmodemOld, kFlashRam},
};

// clang-format on

}  // namespace

const BoardFacts* FindBoardFacts(std::string_view name) {
    for (const BoardFacts& row : kRows) {
        if (SameWord(row.name, name)) return &row;
    }
    return nullptr;
}

size_t BoardFactsCount() {
    return sizeof kRows / sizeof kRows[0];
}

const BoardFacts& BoardFactsAt(size_t index) {
    return kRows[index];
}

}  // namespace simulator

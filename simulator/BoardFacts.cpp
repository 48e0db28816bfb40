#include "simulator/BoardFacts.h"

#include <iterator>

#include "simulator/BoardText.h"

namespace simulator {
namespace {

// Columns: drops oldest, ring, seven bits, restart ms, telnet segment.
const LineFacts kUsbLine = {false, 65536, false, 1500, 0};
const LineFacts kMicromiteLine = {true, 256, true, 0, 0};
const LineFacts kPiLine = {false, 65536, false, 0, 0};
const LineFacts kUartLine = {true, 256, false, 0, 0};
const LineFacts kTelnetLine = {true, 4096, false, 0, 4};

// clang-format off
// The plain PicoMite waits 200 ms for its second core before it prints an error.
// Columns: tail, loud lead, error lead, error delay, full editor, INPUT skips LF, PIN delay,
// soft sign-on, start-up sequence.
const PromptFacts kPrompt603 =
    {"\x1b[?7h", "\x1b[?25h\x1b[97;40m", "Error : ", 200, true, true, 3000, false, ""};
const PromptFacts kPrompt600 = {"", "\x1b[?25h", "Error : ", 200, true, false, 3000, true, ""};
const PromptFacts kPromptCmm2 = {"", "\x1b[?25h\x1b[37m\x1b[m", "", 0, true, false, 50, true, ""};
const PromptFacts kPromptArmmite =
    {"", "", "Error : ", 0, true, false, 3000, true, "\x1b[?1000l"};
const PromptFacts kPromptOld = {"", "", "Error: ", 0, false, false, 3000, true, ""};
const PromptFacts kPromptNoPin = {"", "", "Error: ", 0, false, false, -1, true, ""};

// Columns: end, held echo, AUTOSAVE N, "Saved".
const ReceiveFacts kReceive603 = {BoardReceiveEnd::kCtrlZOrFunctionKey, true, true, true};
const ReceiveFacts kReceive600 = {BoardReceiveEnd::kCtrlZOrFunctionKey, true, false, true};
const ReceiveFacts kReceiveMicromite = {BoardReceiveEnd::kCtrlZ, false, false, true};
const ReceiveFacts kReceivePi = {BoardReceiveEnd::kCtrlC, false, false, true};
const ReceiveFacts kReceiveMaximite = {BoardReceiveEnd::kCtrlC, false, false, false};
const ReceiveFacts kReceiveCmm2 = {BoardReceiveEnd::kFunctionKey, false, true, false};

// Columns: layout, first page, next page, bytes free, new LIST pager, LIST page.
const ListingFacts kListing603 = {BoardListing::kDated, 20, 21, true, true, 20};
const ListingFacts kListing600 = {BoardListing::kDated, 21, 22, true, false, 22};
const ListingFacts kListingPicoCalc = {BoardListing::kDated, 24, 25, true, true, 22};
const ListingFacts kListingCmm2 = {BoardListing::kDated, 50, 50, false, false, 48};
const ListingFacts kListingArmmite = {BoardListing::kSized, 21, 22, false, false, 22};
const ListingFacts kListingOld = {BoardListing::kNameFirst, 21, 22, false, false, 22};

// Columns: modern, start tries, start ms, resend ms, EOT ms, last line.
const XmodemFacts kXmodem603 = {true, 60, 1000, 3000, 3000, "\r"};
const XmodemFacts kXmodemOld = {false, 32, 2000, 1000, 2000, ""};

// Columns: NEW, save, slot (all ms), slots, program memory. The times are estimates.
const FlashFacts kFlashPico = {350, 450, 1500, 3, 122880};
const FlashFacts kFlashCmm2 = {10, 60, 0, 0, 512 * 1024};
const FlashFacts kFlashMicromite = {250, 600, 0, 0, 50 * 1024};
const FlashFacts kFlashArmmite = {250, 450, 0, 0, 128 * 1024};
const FlashFacts kFlashRam = {0, 0, 0, 0, 100 * 1024};

const char kPicoOptions[] =
    "OPTION COLOURCODE ON\r\nOPTION CPUSPEED (KHz) 252000\r\nOPTION SYSTEM I2C GP14, GP15\r\n";
const char kPicoCalcOptions[] =
    "OPTION COLOURCODE ON\r\nOPTION CPUSPEED (KHz) 252000\r\nOPTION KEYBOARD PICOCALC\r\n"
    "OPTION SYSTEM I2C GP14, GP15\r\n";

// Columns after the texts: version, width, statements/ms, BASIC, FAT, CMM2, then the groups:
// line, prompt, receive, listing, xmodem, flash.
const BoardFacts kRows[] = {
    {"picomite", "PicoMite (RP2350), firmware 6.03, USB console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", kPicoOptions, "PicoMite", 6.03, 80, 40, true,
     false, false, kUsbLine, kPrompt603, kReceive603, kListing603, kXmodem603, kFlashPico},
    {"picomite-6.00", "PicoMite (RP2040), firmware 6.00, USB console",
     "\rPicoMite MMBasic Version 6.00.00b5", kPicoOptions, "PicoMite", 6.00, 80, 40, true, false,
     false, kUsbLine, kPrompt600, kReceive600, kListing600, kXmodemOld, kFlashPico},
    {"picocalc", "PicoCalc: PicoMite 6.03 with a 40-column LCD console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", kPicoCalcOptions, "PicoMite", 6.03, 40, 40, true,
     false, false, kUsbLine, kPrompt603, kReceive603, kListingPicoCalc, kXmodem603, kFlashPico},
    {"webmite", "WebMite (RP2040), firmware 6.03, telnet console over TCP",
     "\rWebMite MMBasic RP2040 Edition V6.03.00RC25", kPicoOptions, "WebMite", 6.03, 80, 40, true,
     false, false, kTelnetLine, kPrompt603, kReceive603, kListing603, kXmodem603, kFlashPico},
    {"cmm2", "Colour Maximite 2, firmware 6.00", "Colour Maximite 2 MMBasic Version 6.00.00", "",
     "Colour Maximite 2", 6.00, 100, 200, true, true, true, kUartLine, kPromptCmm2, kReceiveCmm2,
     kListingCmm2, kXmodemOld, kFlashCmm2},
    {"armmite", "Armmite, firmware 5.08", "Armmite MMBasic Version 5.08.00", "", "ARMmite", 5.08,
     80, 100, true, true, false, kUartLine, kPromptArmmite, kReceive600, kListingArmmite,
     kXmodemOld, kFlashArmmite},
    {"micromite+", "Micromite Plus (PIC32MX470), 38400 baud, SD card",
     "Micromite Plus MMBasic Ver 5.05.05", "", "Micromite Plus", 5.05, 80, 15, true, true, false,
     kMicromiteLine, kPromptOld, kReceiveMicromite, kListingOld, kXmodemOld, kFlashMicromite},
    {"maximite", "The first Maximite, USB console, program text by AUTO",
     "Maximite MMBasic Ver 4.5", "", "Maximite", 4.5, 80, 15, true, true, false, kUsbLine,
     kPromptNoPin, kReceiveMaximite, kListingOld, kXmodemOld, kFlashRam},
    {"pi-cromite", "Pi-cromite on a Raspberry Pi", "Pi-cromite MMBasic Ver 5.40", "", "Pi-cromite",
     5.40, 80, 200, true, true, false, kPiLine, kPromptOld, kReceivePi, kListingOld, kXmodemOld,
     kFlashRam},
    {"command", "Any device that echoes a line and prompts", "Simulated command line", "",
     "command", 1.0, 80, 40, false, true, false, kPiLine, kPromptNoPin, kReceivePi, kListingOld,
     kXmodemOld, kFlashRam},
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
    return std::size(kRows);
}

const BoardFacts& BoardFactsAt(size_t index) {
    return kRows[index];
}

}  // namespace simulator

#include "simulator/BoardFacts.h"

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
// Columns: tail, loud lead, error lead, error delay, full editor, wrap marks, INPUT skips LF,
// PIN delay, soft sign-on, start-up sequence.
const PromptFacts kPrompt603 =
    {"\x1b[?7h", "\x1b[?25h\x1b[97;40m", "Error : ", 200, true, true, true, 3000, false, ""};
const PromptFacts kPrompt600 =
    {"", "\x1b[?25h", "Error : ", 200, true, true, false, 3000, true, ""};
const PromptFacts kPromptCmm2 =
    {"", "\x1b[?25h\x1b[37m\x1b[m", "", 0, true, true, false, 50, true, ""};
const PromptFacts kPromptArmmite =
    {"", "", "Error : ", 0, true, false, false, 3000, true, "\x1b[?1000l"};
const PromptFacts kPromptOld = {"", "", "Error: ", 0, false, false, false, 3000, true, ""};
const PromptFacts kPromptNoPin = {"", "", "Error: ", 0, false, false, false, -1, true, ""};

// Columns: end keys, held echo, "Saved".
const ReceiveFacts kReceivePico = {"\x1a\x91\x92", true, true};
const ReceiveFacts kReceiveMicromite = {"\x1a", false, true};
const ReceiveFacts kReceivePi = {"\x03", false, true};
const ReceiveFacts kReceiveMaximite = {"\x03", false, false};
const ReceiveFacts kReceiveCmm2 = {"\x91\x92", false, false};

// Columns: layout, first page, next page, bytes free, LIST page.
const ListingFacts kListing603 = {BoardListing::kDated, 20, 21, true, 20};
const ListingFacts kListing600 = {BoardListing::kDated, 21, 22, true, 22};
const ListingFacts kListingPicoCalc = {BoardListing::kDated, 24, 25, true, 22};
const ListingFacts kListingCmm2 = {BoardListing::kDated, 50, 50, false, 48};
const ListingFacts kListingArmmite = {BoardListing::kSized, 21, 22, false, 22};
const ListingFacts kListingOld = {BoardListing::kNameFirst, 21, 22, false, 22};

// Columns: modern, start tries, start ms, resend ms, EOT ms.
const XmodemFacts kXmodem603 = {true, 60, 1000, 3000, 3000};
const XmodemFacts kXmodemOld = {false, 32, 2000, 1000, 2000};

// Columns: NEW, save, slot (all ms), program memory. The times are estimates.
const FlashFacts kFlashPico = {350, 450, 1500, 122880};
const FlashFacts kFlashCmm2 = {10, 60, 0, 512 * 1024};
const FlashFacts kFlashMicromite = {250, 600, 0, 50 * 1024};
const FlashFacts kFlashArmmite = {250, 450, 0, 128 * 1024};
const FlashFacts kFlashRam = {0, 0, 0, 100 * 1024};

const char kPicoOptions[] =
    "OPTION COLOURCODE ON\r\nOPTION CPUSPEED (KHz) 252000\r\nOPTION SYSTEM I2C GP14, GP15\r\n";

// Columns after the texts: width, statements/ms, BASIC, CMM2, then the groups: line, prompt,
// receive, listing, xmodem, flash.
const std::vector<BoardFacts> kRows = {
    {"picomite", "PicoMite (RP2350), firmware 6.03, USB console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", kPicoOptions, "PicoMite", 80, 40, true, false,
     kUsbLine, kPrompt603, kReceivePico, kListing603, kXmodem603, kFlashPico},
    {"picomite-6.00", "PicoMite (RP2040), firmware 6.00, USB console",
     "\rPicoMite MMBasic Version 6.00.00b5", kPicoOptions, "PicoMite", 80, 40, true, false,
     kUsbLine, kPrompt600, kReceivePico, kListing600, kXmodemOld, kFlashPico},
    {"picocalc", "PicoCalc: PicoMite 6.03 with a 40-column LCD console",
     "\rPicoMite MMBasic RP2350A V6.03.00RC25", kPicoOptions, "PicoMite", 40, 40, true, false,
     kUsbLine, kPrompt603, kReceivePico, kListingPicoCalc, kXmodem603, kFlashPico},
    {"webmite", "WebMite (RP2040), firmware 6.03, telnet console over TCP",
     "\rWebMite MMBasic RP2040 Edition V6.03.00RC25", kPicoOptions, "WebMite", 80, 40, true, false,
     kTelnetLine, kPrompt603, kReceivePico, kListing603, kXmodem603, kFlashPico},
    {"cmm2", "Colour Maximite 2, firmware 6.00", "Colour Maximite 2 MMBasic Version 6.00.00", "",
     "Colour Maximite 2", 100, 200, true, true, kUartLine, kPromptCmm2, kReceiveCmm2,
     kListingCmm2, kXmodemOld, kFlashCmm2},
    {"armmite", "Armmite, firmware 5.08", "Armmite MMBasic Version 5.08.00", "", "ARMmite", 80, 100,
     true, false, kUartLine, kPromptArmmite, kReceivePico, kListingArmmite, kXmodemOld,
     kFlashArmmite},
    {"micromite+", "Micromite Plus (PIC32MX470), 38400 baud, SD card",
     "Micromite Plus MMBasic Ver 5.05.05", "", "Micromite Plus", 80, 15, true, false,
     kMicromiteLine, kPromptOld, kReceiveMicromite, kListingOld, kXmodemOld, kFlashMicromite},
    {"maximite", "The first Maximite, USB console, program text by AUTO",
     "Maximite MMBasic Ver 4.5", "", "Maximite", 80, 15, true, false, kUsbLine, kPromptNoPin,
     kReceiveMaximite, kListingOld, kXmodemOld, kFlashRam},
    {"pi-cromite", "Pi-cromite on a Raspberry Pi", "Pi-cromite MMBasic Ver 5.40", "", "Pi-cromite",
     80, 200, true, false, kPiLine, kPromptOld, kReceivePi, kListingOld, kXmodemOld, kFlashRam},
    {"command", "Any device that echoes a line and prompts", "Simulated command line", "",
     "command", 80, 40, false, false, kPiLine, kPromptNoPin, kReceivePi, kListingOld, kXmodemOld,
     kFlashRam},
};

// clang-format on

}  // namespace

const BoardFacts* FindBoardFacts(std::string_view name) {
    for (const BoardFacts& row : kRows) {
        if (SameWord(row.name, name)) return &row;
    }
    return nullptr;
}

const std::vector<BoardFacts>& AllBoardFacts() {
    return kRows;
}

}  // namespace simulator

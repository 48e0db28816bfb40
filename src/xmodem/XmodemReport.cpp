#include "xmodem/XmodemReport.h"

#include <QString>

#include "base/Numbers.h"
#include "xmodem/Frame.h"
#include "xmodem/WorkerCalls.h"
#include "xmodem/XmodemJob.h"

namespace {

constexpr int kCancelBytes = 5;  // CAN as often as this, then BS as often

struct ReportRow {
    int code;
    const char* text;
    bool namesBlock;
    int blockOffset;  // added to the block number that the text names
};

// clang-format off
constexpr ReportRow kReports[] = {
    {kShortFrame,      "Short Block in #",                  true,   0},
    {kLongFrame,       "Long Block in #",                   true,   0},
    {kWrongSum,        "Checksum Error in #",               true,   0},
    {kWrongCrc,        "CRC Error in #",                    true,   0},
    {kWrongNumber,     "Block # Error in #",                true,   0},
    {kWrongComplement, "Complement Error in #",             true,   0},
    {kRepeatedBlock,   "Block # Repeated in #",             true,  -1},
    {kUnexpectedError, "Unexpected Error!",                 false,  0},
    {kCancelled,       "Transfer Cancelled",                false,  0},
    {kAbortedByUser,   "Transfer Aborted by User",          false,  0},
    {kAbortedBySender, "Transfer Aborted by Sender",        false,  0},
    {kNoCarrier,       "No Carrier",                        false,  0},
    {kTooManyErrors,   "Maximum Errors. Transfer Aborted.", false,  0},
};
// clang-format on

QString ReportText(int64_t code, int64_t block) {
    for (const ReportRow& row : kReports) {
        if (row.code != code) continue;
        return row.namesBlock ? row.text + QString::number(block + row.blockOffset) : row.text;
    }
    return QString();
}

}  // namespace

int XmodemReport(int64_t code, int64_t block) {
    ShowJobStatus(JobOf(Direction::kReceive), ReportText(code, block));
    if (code > kLastRetryCode) {
        WorkerPut(kCan, kCancelBytes);
        WorkerPut(kBs, kCancelBytes);
        return kGiveUp;
    }
    WorkerPut(code == kRepeatedBlock ? kAck : kNak);
    return kTryAgain;
}

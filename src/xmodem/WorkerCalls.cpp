#include "xmodem/WorkerCalls.h"

#include "base/Pacing.h"
#include "base/WorkerThread.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/TerminalScreen.h"
#include "xmodem/Frame.h"

void WorkerSleep(int64_t ms) {
    SleepMs(ms);
}

int WorkerTake(uint8_t* block) {
    if (WorkerIsStopped()) return -1;
    return static_cast<int>(ReceiveBytes(block, kWorkerBlock));
}

void WorkerAwait(int64_t ms) {
    if (!WorkerIsStopped()) AwaitBytes(ms);
}

void WorkerPut(uint8_t byte, int times) {
    for (int i = 0; i < times && !WorkerIsStopped(); ++i) SendByte(byte);
}

void WorkerPutBytes(const uint8_t* bytes, int count) {
    if (!WorkerIsStopped()) SendBytes(bytes, count);
}

QString WorkerAsk(const QString& text, int64_t delay) {
    return WorkerIsStopped() ? QString() : SendAndWait(text, delay);
}

void WorkerPrint(const QString& text) {
    if (!WorkerIsStopped()) TerminalPrintLine(text);
}

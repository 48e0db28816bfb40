#include "xmodem/WorkerCalls.h"

#include <pthread.h>

#include "base/Pacing.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/TerminalScreen.h"
#include "xmodem/Frame.h"

Killable::Killable() {
    pthread_setcancelstate(PTHREAD_CANCEL_ENABLE, &before);
    pthread_testcancel();
}

Killable::~Killable() {
    pthread_setcancelstate(before, nullptr);
}

Unkillable::Unkillable() {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before);
}

Unkillable::~Unkillable() {
    pthread_setcancelstate(before, nullptr);
}

void MeetKill() {
    const Killable here;
}

void WorkerSleep(int64_t ms) {
    const Killable here;
    SleepMs(ms);
}

int WorkerTake(uint8_t* block) {
    const Killable here;
    return static_cast<int>(ReceiveBytes(block, kWorkerBlock));
}

void WorkerAwait(int64_t ms) {
    const Killable here;
    AwaitBytes(ms);
}

void WorkerPut(uint8_t byte, int times) {
    const Killable here;
    for (int i = 0; i < times; ++i) SendByte(byte);
}

void WorkerPutBytes(const uint8_t* bytes, int count) {
    const Killable here;
    SendBytes(bytes, count);
}

QString WorkerAsk(const QString& text, int64_t delay) {
    const Killable here;
    return SendAndWait(text, delay);
}

void WorkerPrint(const QString& text) {
    MeetKill();
    TerminalPrintLine(text);
}

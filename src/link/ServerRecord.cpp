#include "link/ServerRecord.h"

#include <cerrno>
#include <memory>

#include "base/Numbers.h"
#include "ui/events/EventQueue.h"

// There is one slot: a line that was not shown yet is lost to the next one, whose event
// then shows it and the event before an empty line.
void PostServerMessage(ServerRecord& record, const QString& text) {
    delete record.message.exchange(new QString(text));
    if (record.unreadMessages >= kMostUnreadMessages) return;
    ++record.unreadMessages;
    PostInterfaceEvent(kEventServerMessage, kMainWindow, kNone, record.identity);
}

QString TakeServerMessage(ServerRecord& record) {
    --record.unreadMessages;
    const std::unique_ptr<QString> message(record.message.exchange(nullptr));
    return message ? *message : QString();
}

void HandOverChunk(ServerRecord& record) {
    PostInterfaceEvent(kEventServerChunk, kMainWindow, kNone, record.identity);
    while (sem_wait(&record.chunkSemaphore) < 0 && errno == EINTR) {
    }
}

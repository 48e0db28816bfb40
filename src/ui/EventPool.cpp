#include "ui/EventPool.h"

namespace {

InterfaceEvent* freeRecords = nullptr;
int freeCount = 0;

}  // namespace

InterfaceEvent* NewEventRecord(const InterfaceEvent& event) {
    InterfaceEvent* record = freeRecords;
    if (record) {
        freeRecords = record->next;
        --freeCount;
    } else {
        record = new InterfaceEvent;
    }
    *record = event;
    record->next = nullptr;
    return record;
}

void ReleaseEventData(InterfaceEvent& event) {
    if (event.dataFree) event.dataFree(event.data);
    event.data = nullptr;
    event.dataFree = nullptr;
}

void FreeEventRecord(InterfaceEvent* record) {
    if (!record) return;
    ReleaseEventData(*record);
    if (freeCount >= kMaxPooledEvents) {
        delete record;
        return;
    }
    record->next = freeRecords;
    freeRecords = record;
    ++freeCount;
}

void EmptyEventPool() {
    while (freeRecords) {
        InterfaceEvent* record = freeRecords;
        freeRecords = record->next;
        delete record;
    }
    freeCount = 0;
}

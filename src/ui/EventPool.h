// The records that events travel in. The queue's lock is held by whoever calls.
#pragma once

#include "ui/InterfaceEvent.h"

// Released records kept for the next event; what is beyond goes back to the heap, so a
// burst leaves nothing behind.
constexpr int kMaxPooledEvents = 256;

// A record that holds a copy of `event`, with no successor.
InterfaceEvent* NewEventRecord(const InterfaceEvent& event);

// Releases the event's data, if it has any, and leaves the record without any.
void ReleaseEventData(InterfaceEvent& event);

// Gives a record back with its data. Null is allowed.
void FreeEventRecord(InterfaceEvent* record);

// Gives all kept records back to the heap.
void EmptyEventPool();

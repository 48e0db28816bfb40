// The data and control servers, through which local tools reach the console. Interface
// thread.
#pragma once

#include <cstdint>

void StartServers();
void StopServers();

// Bytes from the device to the data port's client, if one is connected.
void SendToDataClient(const void* bytes, int64_t count);

// Handlers of the two server events; the identity is that of base/Numbers.h.
void HandleServerMessage(int64_t identity);

#include "link/Servers.h"

// The local servers are not part of this build: nothing listens, so no client ever
// connects and no server event is ever posted.

void StartServers() {}

void StopServers() {}

void SendToDataClient(const void*, int64_t) {}

void HandleServerMessage(int64_t) {}

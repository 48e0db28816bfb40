// What the local servers' clients send, acted on. Interface thread.
#pragma once

#include <cstdint>

// Handler of event 65538. For an identity that is neither server's, feeds "Other".
void HandleServerChunk(int64_t identity);

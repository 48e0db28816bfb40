#include "shell/ServerChunks.h"

#include "base/Numbers.h"
#include "terminal/screen/VtParser.h"

void HandleServerChunk(int64_t identity) {
    // With no server in this build no chunk of one can come.
    if (identity == kDataServerIdentity || identity == kControlServerIdentity) return;
    TerminalFeed("Other");
}

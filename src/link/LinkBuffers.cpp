// The two blocks that all link traffic passes through.
#include <algorithm>
#include <vector>

#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "ui/events/InterfaceThread.h"

namespace {

struct LinkBlocks {
    std::vector<uint8_t> rx;
    std::vector<uint8_t> tx;
};

LinkBlocks programBlocks;
thread_local LinkBlocks workerBlocks;

void Allocate(LinkBlocks& blocks) {
    const int size =
        std::clamp(linkSettings.commsBufferSize, kSmallestCommsBuffer, kLargestCommsBuffer);
    blocks.rx.assign(size, 0);
    blocks.tx.assign(size, 0);
}

LinkBlocks& BlocksOfThread() {
    LinkBlocks& blocks = OnInterfaceThread() ? programBlocks : workerBlocks;
    if (blocks.tx.empty()) Allocate(blocks);
    return blocks;
}

}  // namespace

void AllocateLinkBuffers() {
    Allocate(programBlocks);
}

void FreeLinkBuffers() {
    programBlocks = LinkBlocks();
}

uint8_t* RxBuffer() {
    return BlocksOfThread().rx.data();
}

uint8_t* TxBuffer() {
    return BlocksOfThread().tx.data();
}

int LinkBufferSize() {
    return static_cast<int>(BlocksOfThread().tx.size());
}

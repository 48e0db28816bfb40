#include "ui/events/InterfaceThread.h"

#include <thread>

namespace {

std::thread::id interfaceThread;

}  // namespace

void BecomeInterfaceThread() {
    interfaceThread = std::this_thread::get_id();
}

bool OnInterfaceThread() {
    return std::this_thread::get_id() == interfaceThread;
}

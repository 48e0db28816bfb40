#include "link/LinkWatch.h"

#include <utility>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "ui/events/InputWatch.h"

namespace {

HeldDescriptor watched;  // open for as long as the toolkit knows its number

}  // namespace

void WatchLink() {
    HeldDescriptor link = LinkDescriptor().Hold();
    if (link != watched) ForgetLinkWatch();
    watched = std::move(link);
    if (watched) FireTimerOnInput(watched->fd, kMainWindow, kPollTimer);
}

bool LinkIsWatched() {
    return InputIsAwaited();
}

void ForgetLinkWatch() {
    ForgetInput();
    watched.reset();
}

// Having the poll run as soon as bytes wait on the link, instead of at its timer's next
// firing. Interface thread.
#pragma once

// The poll's event comes once when bytes wait on the transport in force.
void WatchLink();
bool LinkIsWatched();
// When the link is closed: the watch holds its descriptor.
void ForgetLinkWatch();

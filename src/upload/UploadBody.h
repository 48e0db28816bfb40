// The lines of a source on their way to a device in receive mode. Interface thread.
#pragma once

#include <QString>

constexpr int kLongestNap = 24 * 60 * 60;  // seconds that a directive may wait at the most

// Sends each line of the source and waits for its echo, and acts on the directives among
// them. False when an echo did not come: the rest was not sent.
bool SendSourceLines(const QString& source);

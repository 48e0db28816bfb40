// The decoding of arrived bytes stands on the lowest floor, since the monitor views below
// the link need it too; the link's users find it here.
#pragma once

#include "base/DecodeLinkText.h"

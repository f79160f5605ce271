// What the media library keeps about its plug-ins: a file in a cache of the user's, found where the variables
// that the library itself knows say.
#pragma once

#include "posix/descriptor.h"

#include <chrono>

namespace plugincache {

// It is there, and no directory of plug-ins has changed since.
bool isFresh();
// The library was started: it writes nothing when it finds nothing new.
void noteLook();
// Of a library that was killed while it wrote. One that writes now keeps what it has.
void removeLeftovers();

// Held by whoever starts the library, so that two do not look at the same plug-ins at once. Waits for the one
// before, but no longer than that; given back when it goes, also with a process that is killed.
Descriptor turn(std::chrono::milliseconds patience);

} // namespace plugincache

// What the media library keeps about its plug-ins is a file in a cache of the user's; it is looked for where
// the variables that the library itself knows say.
#pragma once

#include "posix/descriptor.h"

#include <chrono>

namespace plugincache {

// Tells that it is there, and no directory of plug-ins has changed since.
bool isFresh();
// Notes that the library was started, because it writes nothing when it finds nothing new.
void noteLook();
// Removes what a library that was killed left while it wrote. One that writes now keeps what it has.
void removeLeftovers();

// It is held by whoever starts the library, so that two do not look at the same plug-ins at once. It waits
// for the one before, but no longer than that, and is given back when it goes, also with a process that is
// killed.
Descriptor turn(std::chrono::milliseconds patience);

} // namespace plugincache

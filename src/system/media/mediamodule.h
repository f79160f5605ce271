// The module that plays is entered here. It is a shared object beside the executable, loaded when something
// is first played, because the media and sound libraries would make every start slower.
//
// Program and module each hold a copy of the platform's code. No harm comes of it: what passes between them
// are the interfaces below and the values in their calls, and nobody asks such an object for another type.
#pragma once

#include "platform/mediamachine.h"

class Drives;

namespace mediamodule {

// Both sides compare it, because an executable and a module of different builds may not be mixed.
constexpr char kBuild[] = SONGBIN_VERSION " of " __VERSION__;
constexpr char kEntry[] = "songbinMediaMachine";

// Starts the media library, so that it has looked at its plug-ins; false when it cannot.
constexpr char kPreparation[] = "songbinPrepareMedia";
using Preparation = bool(const char* build);

// Returns null when the module is of another build. The machine is the caller's; the drives must outlive it.
using Entry = MediaMachine*(const char* build, Drives& drives);

} // namespace mediamodule

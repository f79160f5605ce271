#pragma once

#include "platform/entereddirectories.h"

// Is false for one that the walk entered before, and for one of the kernel's own file systems (proc, sysfs
// and the like), which hold no files of anybody's. The descriptor is an open directory's.
bool enterDirectory(EnteredDirectories& walk, int directory);

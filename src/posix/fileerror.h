// Makes the run time's errors of what the system says of a file.
#pragma once

#include "base/runtimeerror.h"

// A value of errno becomes 53 (no such file), 70 (not allowed), 61 (disk full), 76 (no directory on the way),
// or 75 (all others).
RunTimeError fileError(int systemError);

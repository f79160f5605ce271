// Makes the run time's errors of what the system says of a file.
#pragma once

#include "base/runtimeerror.h"

// A value of errno becomes FileNotFound, PermissionDenied, DiskFull, PathNotFound (no directory on the way),
// or PathFileAccess (all others).
RunTimeError fileError(int systemError);

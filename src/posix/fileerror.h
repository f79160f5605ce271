// The run time's errors for what the system says of a file.
#pragma once

#include "base/runtimeerror.h"

// For a value of errno: 53 no such file, 70 not allowed, 61 disk full, 76 no directory on the way, 75 all
// others.
RunTimeError fileError(int systemError);

#pragma once

#include "base/runtimeerror.h"

// Somebody else has the archive locked; nothing was done, and it can be tried again. Its number is
// kConnectionError.
class ArchiveLocked : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

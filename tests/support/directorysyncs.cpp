#include "tests/support/directorysyncs.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool fails(int descriptor)
{
    struct stat facts {};
    if (directorysyncs::failures <= 0 || fstat(descriptor, &facts) != 0 || !S_ISDIR(facts.st_mode))
        return false;
    --directorysyncs::failures;
    errno = directorysyncs::failure;
    return true;
}

} // namespace

// Stands in place of the system's own, for this program and all its libraries.
extern "C" int fsync(int descriptor)
{
    return fails(descriptor) ? -1 : static_cast<int>(syscall(SYS_fsync, descriptor));
}

extern "C" int fdatasync(int descriptor)
{
    return fails(descriptor) ? -1 : static_cast<int>(syscall(SYS_fdatasync, descriptor));
}

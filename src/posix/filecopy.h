// Copies a file of this machine.
#pragma once

#include <QByteArray>

#include <functional>

class CopyNotes;

// The content goes to a temporary file beside the target, to the disk, and is renamed over the target (over
// what it leads to, where it is a link), whose rights stay. The new name is on the disk, too, when it
// returns. Throws RunTimeError DiskFull, PermissionDenied, DeviceIoError (the source gives less than its
// length), PathFileAccess or PathNotFound; the old target then stays as it was and no temporary is left; of a
// killed program's the notes tell. The source is not read any more once `whenRead` is called; what that
// throws is passed on.
void copyToFile(int source, const QByteArray& target, const CopyNotes* notes = nullptr,
                const std::function<void()>& whenRead = {});

// Opens an archive file with the engine settings on which its safety rests.
#pragma once

#include <QByteArray>

#include <memory>

struct sqlite3;

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept;
};
using DatabasePtr = std::unique_ptr<sqlite3, CloseDatabase>;

// A path of the machine; symbolic links are resolved first, so that the journal lies beside the file itself.
// The file must exist and is read, so that one that is no archive is told here. One without write permission
// opens and fails at the first write. Throws RunTimeError kConnectionError (platform/connection.h).
DatabasePtr openArchiveFile(const QByteArray& path);

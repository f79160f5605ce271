// Opens an archive file with the settings of SQLite on which its safety rests.
#pragma once

#include <QByteArray>

#include <chrono>
#include <memory>

struct sqlite3;

inline constexpr std::chrono::milliseconds kUsualPatience{1000}; // the windows stand still meanwhile

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept;
};
using DatabasePtr = std::unique_ptr<sqlite3, CloseDatabase>;

// The path is the machine's; symbolic links are resolved first, so that the journal lies beside the file
// itself. The file must exist and is read, so that one that is no archive is told here. One without write
// permission opens and fails at the first write. Throws RunTimeError kConnectionError, ArchiveLocked when
// that is why. Another program's lock is waited for as long as patience lasts, now and at each statement.
DatabasePtr openArchiveFile(const QByteArray& path, std::chrono::milliseconds patience = kUsualPatience);

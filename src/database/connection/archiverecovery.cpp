#include "database/connection/archiverecovery.h"

#include "database/connection/archivefile.h"

#include <sqlite3.h>

#include <filesystem>

namespace fs = std::filesystem;

void recoverArchive(const QByteArray& path)
{
    std::error_code error;
    const fs::path archive = fs::canonical(path.toStdString(), error);
    if (error)
        return;
    const fs::path journal = archive.string() + "-journal";
    if (!fs::exists(journal, error))
        return;

    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(archive.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    const DatabasePtr database(raw);
    if (opened != SQLITE_OK)
        return;
    // The lock undoes an unfinished group first. A journal that is still there then holds nothing to undo,
    // and while the lock is held nobody else's can take its place.
    if (sqlite3_exec(raw, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK)
        return;
    fs::remove(journal, error);
    sqlite3_exec(raw, "ROLLBACK", nullptr, nullptr, nullptr);
}

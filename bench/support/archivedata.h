// Makes an archive of 1,000,000 rows for the benchmarks.
#pragma once

#include "system/drives/systemdrives.h"

#include <QString>

#include <string>

class BenchArchive {
public:
    static constexpr int kRows = 1'000'000;

    // Makes it in that directory (a path of the machine) unless it is there already.
    explicit BenchArchive(const std::string& directory);

    SystemDrives& drives() { return m_drives; }
    QString connectionText() const;
    const std::string& file() const { return m_file; } // a path of the machine

    // Milliseconds from no connection to a whole result, and to its end. Ends the program when it is empty.
    double openResult(const QString& statement);
    // Does the same by the sqlite3 shell, which writes the rows to /dev/null.
    double openByShell(const QString& statement) const;

private:
    std::string m_file;
    SystemDrives m_drives;
};

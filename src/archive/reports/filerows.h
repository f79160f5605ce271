// Are the rows of a listing of files, with bookmarks for the disks and what lies on them.
#pragma once

#include "archive/reports/storedrows.h"

#include <optional>
#include <vector>

// Below a disk the bookmarks name its files; where that would make more than anybody looks through they name
// the directories, and nothing where those are too many as well. Of too many disks every second has one, or
// every third, and so on.
class FileRows : public StoredRows {
public:
    static constexpr int kMostBookmarks = 5'000;

    explicit FileRows(CommandRows rows); // all columns of the table are shown

    QStringList bookmarks(int row) const override;

private:
    enum class Detail { File, Directory, Disk, SomeDisks };

    bool beginsDisk(int row) const;
    bool beginsBelow(int row, Detail detail) const;
    bool isFew(Detail detail) const;
    Detail finest() const;
    std::vector<int> someDisks() const; // their first rows
    void lookOver() const;
    bool marksDisk(int row) const;
    QString nameBelow(int row, Detail detail) const;

    mutable std::optional<Detail> m_detail; // is found when a bookmark is first asked for
    mutable std::vector<int> m_someDisks;
};

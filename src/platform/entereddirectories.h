// Remembers the directories that a walk has entered. A link may lead to a directory again, and many links
// crosswise lead to few directories in very many ways: each is entered once.
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <set>
#include <unordered_set>

// The time is part of it because some file systems give a number twice: it is better to enter a directory
// that is changed meanwhile twice than another one never.
struct DirectoryPlace {
    quint64 device;
    quint64 node;
    qint64 seconds;
    qint64 nanoseconds;

    bool operator==(const DirectoryPlace&) const = default;
};

class EnteredDirectories {
public:
    // Is false for one that was entered before, and for one whose file system is the kernel's own; a file
    // system is asked once.
    template <typename Asked>
    bool enter(const DirectoryPlace& place, Asked&& isKernels)
    {
        if (!m_disks.contains(place.device)) {
            if (isKernels()) {
                m_metKernel = true;
                return false;
            }
            m_disks.insert(place.device);
        }
        return m_places.insert(place).second;
    }

    bool metKernel() const { return m_metKernel; }

private:
    struct Hash {
        std::size_t operator()(const DirectoryPlace& place) const
        {
            return place.node ^ (place.device << 20U);
        }
    };

    std::unordered_set<DirectoryPlace, Hash> m_places;
    std::set<quint64> m_disks;
    bool m_metKernel = false;
};

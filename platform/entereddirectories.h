// The directories that a walk has entered. A link may lead to a directory again, and many links crosswise
// lead to few directories in very many ways: each is entered once.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <set>
#include <unordered_set>

class EnteredDirectories {
public:
    // False for one that was entered before, and for one of the kernel's own file systems (proc, sysfs and
    // the like), which hold no files of anybody's. The descriptor is an open directory's.
    bool enter(int directory);

    bool metKernel() const { return m_metKernel; }

private:
    // The time is part of it because some file systems give a number twice: better a directory that is
    // changed meanwhile twice than another one never.
    struct Place {
        dev_t device;
        ino_t node;
        time_t seconds;
        long nanoseconds;

        bool operator==(const Place&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Place& place) const { return place.node ^ (place.device << 20U); }
    };

    bool isKernels(int directory, dev_t device);

    std::unordered_set<Place, Hash> m_places;
    std::set<dev_t> m_disks;
    bool m_metKernel = false;
};

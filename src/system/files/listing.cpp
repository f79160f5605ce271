#include "system/files/listing.h"

#include "base/filenametext.h"
#include "base/runtimeerror.h"
#include "system/drives/caselessnames.h"
#include "system/files/directoryvisit.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <set>
#include <utility>

namespace {

using Place = std::pair<dev_t, ino_t>;

RunTimeError listingError(int error)
{
    const bool away = error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
    return RunTimeError(away ? ErrorNumber::PathNotFound : ErrorNumber::PathFileAccess);
}

void addPrefixes(std::set<Place>& places, const QByteArray& path)
{
    for (qsizetype end = 0; end <= path.size(); ++end) {
        struct stat status {};
        const bool isPrefix = end == path.size() || path[end] == '/';
        if (isPrefix && stat(end == 0 ? "/" : path.left(end).constData(), &status) == 0)
            places.emplace(status.st_dev, status.st_ino);
    }
}

// Knows the directories above an entry, by the way that led to it and by where it really is.
class Ancestors {
public:
    explicit Ancestors(const QByteArray& directory) : m_directory(directory) {}

    bool contain(const struct stat& status)
    {
        if (m_places.empty())
            fill();
        return m_places.contains(Place(status.st_dev, status.st_ino));
    }

private:
    void fill()
    {
        addPrefixes(m_places, m_directory);
        const std::unique_ptr<char, void (*)(void*)> real(realpath(m_directory.constData(), nullptr),
                                                          std::free);
        if (real && m_directory != real.get())
            addPrefixes(m_places, real.get());
    }

    const QByteArray& m_directory;
    std::set<Place> m_places;
};

class Reader {
public:
    explicit Reader(const QByteArray& directory)
        : m_ancestors(directory), m_stream(opendir(directory.constData()), closedir)
    {
        if (!m_stream)
            throw listingError(errno);
    }

    bool isEnteredBy(EnteredDirectories& walk) const { return enterDirectory(walk, dirfd(m_stream.get())); }

    std::vector<DirEntry> all()
    {
        std::vector<DirEntry> entries;
        for (;;) {
            errno = 0;
            const dirent* entry = readdir(m_stream.get());
            if (entry == nullptr)
                break;
            const QByteArrayView name(entry->d_name);
            const int attributes = name == "." || name == ".." ? kLeftOut : attributesOf(*entry);
            if (attributes != kLeftOut)
                entries.push_back({filenametext::toText(name), attributes});
        }
        if (errno != 0)
            throw listingError(errno);
        return entries;
    }

private:
    static constexpr int kLeftOut = -1;

    int attributesOf(const dirent& entry)
    {
        if (entry.d_type == DT_REG)
            return kNormal;
        if (entry.d_type == DT_DIR)
            return kDirectory;
        const bool unknown = entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN;
        struct stat status {};
        if (!unknown || fstatat(dirfd(m_stream.get()), entry.d_name, &status, 0) != 0)
            return kLeftOut;
        if (S_ISDIR(status.st_mode))
            return m_ancestors.contain(status) ? kLeftOut : kDirectory;
        return S_ISREG(status.st_mode) ? kNormal : kLeftOut;
    }

    Ancestors m_ancestors;
    std::unique_ptr<DIR, int (*)(DIR*)> m_stream;
};

std::vector<DirEntry> sorted(std::vector<DirEntry>&& entries)
{
    std::vector<std::pair<QString, std::size_t>> order;
    order.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        order.emplace_back(foldedName(entries[i].name), i);
    std::sort(order.begin(), order.end(), [&](const auto& a, const auto& b) {
        const int difference = QStringView(a.first).compare(b.first);
        return difference != 0 ? difference < 0 : entries[a.second].name < entries[b.second].name;
    });
    std::vector<DirEntry> result;
    result.reserve(entries.size());
    for (const auto& [key, index] : order)
        result.push_back(std::move(entries[index]));
    return result;
}

} // namespace

std::vector<DirEntry> readListing(const QByteArray& directory)
{
    return sorted(Reader(directory).all());
}

std::optional<std::vector<DirEntry>> readListing(const QByteArray& directory, EnteredDirectories& walk)
{
    Reader reader(directory);
    if (!reader.isEnteredBy(walk))
        return std::nullopt;
    return sorted(reader.all());
}

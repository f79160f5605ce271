#include "system/drives/caselessnames.h"

#include "base/filenametext.h"

#include <dirent.h>

#include <ctime>
#include <memory>

namespace {

constexpr qsizetype kMostNames = 400'000;
// Some file systems keep the time of modification in steps of two seconds.
constexpr time_t kCoarsestStep = 3;

bool isThere(const QByteArray& path)
{
    struct stat status {};
    return lstat(path.constData(), &status) == 0;
}

bool sameTime(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

QChar folded(QChar c)
{
    const char16_t unit = c.unicode();
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? QChar(static_cast<char16_t>(unit + 32)) : c;
    return c.toCaseFolded();
}

void keepFirst(QHash<QString, QByteArray>& names, const QString& key, const QByteArray& name)
{
    QByteArray& kept = names[key];
    if (kept.isEmpty() || name < kept)
        kept = name;
}

// All forms of an accented letter have one key: disks of other systems hold it as letter and accent.
QString composedKey(const QString& name)
{
    return foldedName(name.normalized(QString::NormalizationForm_C));
}

} // namespace

QString foldedName(QStringView name)
{
    QString text(name.size(), Qt::Uninitialized);
    std::transform(name.begin(), name.end(), text.begin(), folded);
    return text;
}

CaselessNames::Listing& CaselessNames::read(const QByteArray& directory)
{
    if (m_held > kMostNames) {
        m_listings.clear();
        m_held = 0;
    }
    Listing& listing = m_listings[directory];
    m_held -= listing.size();
    listing = {};
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(directory.constData()), closedir);
    struct stat status {};
    if (!entries || fstat(dirfd(entries.get()), &status) != 0)
        return listing;
    listing.device = status.st_dev;
    listing.node = status.st_ino;
    listing.modified = status.st_mtim;
    listing.settled = std::time(nullptr) - status.st_mtim.tv_sec > kCoarsestStep;
    while (const dirent* entry = readdir(entries.get()))
        listing.add(QByteArray(entry->d_name));
    m_held += listing.size();
    return listing;
}

void CaselessNames::Listing::add(const QByteArray& name)
{
    const QString text = filenametext::toText(name);
    const QString folded = foldedName(text);
    keepFirst(names, folded, name);
    if (const QString composed = composedKey(text); composed != folded)
        keepFirst(decomposed, composed, name);
}

// A name that differs in case alone goes before one that differs in the form of its letters.
QByteArray CaselessNames::Listing::find(const QString& name) const
{
    if (const auto found = names.find(foldedName(name)); found != names.end())
        return *found;
    const QString key = composedKey(name);
    const auto found = names.find(key);
    return found != names.end() ? *found : decomposed.value(key);
}

CaselessNames::Listing& CaselessNames::listing(const QByteArray& directory, const struct stat& status)
{
    const auto known = m_listings.find(directory);
    if (known != m_listings.end() && known->device == status.st_dev && known->node == status.st_ino &&
        sameTime(known->modified, status.st_mtim))
        return *known;
    return read(directory);
}

QByteArray CaselessNames::find(const QByteArray& directory, const QByteArray& name)
{
    struct stat status {};
    if (stat(directory.constData(), &status) != 0 || !S_ISDIR(status.st_mode))
        return {};
    const QString text = filenametext::toText(name);
    Listing& known = listing(directory, status);
    const QByteArray found = known.find(text);
    const bool certain = found.isEmpty() ? known.settled : isThere(directory + '/' + found);
    return certain ? found : read(directory).find(text);
}

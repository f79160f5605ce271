#include "posix/wholefile.h"

#include "base/runtimeerror.h"
#include "posix/newfile.h"

#include <QHash>
#include <QMutex>

#include <climits>

namespace {

QByteArray partialOf(const ReplacedFile& target, int number)
{
    const QByteArray ending = number == 1 ? ".partial" : ".partial-" + QByteArray::number(number);
    const QByteArray name = target.path.mid(target.directory.size());
    return target.directory + name.left(NAME_MAX - ending.size()) + ending;
}

// Remembers what this program has left beside files. A disk may fail every half minute: what is left then
// takes the place of what was left before, and of nothing else that has such a name.
class Leftovers {
public:
    bool has(const QByteArray& path)
    {
        const QMutexLocker lock(&m_mutex);
        struct stat found {};
        const auto left = m_left.constFind(path);
        return left != m_left.constEnd() && lstat(path.constData(), &found) == 0 && isSame(*left, found);
    }
    void note(const QByteArray& path)
    {
        const QMutexLocker lock(&m_mutex);
        struct stat found {};
        if (lstat(path.constData(), &found) == 0)
            m_left[path] = found;
    }

private:
    // Nobody has put another in its place, nor changed it.
    static bool isSame(const struct stat& left, const struct stat& found)
    {
        return left.st_dev == found.st_dev && left.st_ino == found.st_ino && left.st_size == found.st_size &&
               left.st_ctim.tv_sec == found.st_ctim.tv_sec && left.st_ctim.tv_nsec == found.st_ctim.tv_nsec;
    }

    QMutex m_mutex;
    QHash<QByteArray, struct stat> m_left;
};

void leaveBeside(NewFile& fresh, const ReplacedFile& target)
{
    static Leftovers leftovers;
    constexpr int kMost = 99; // a directory where nothing can be renamed is not asked for ever
    for (int number = 1; number <= kMost; ++number) {
        const QByteArray path = partialOf(target, number);
        const bool isOurs = leftovers.has(path);
        if (isOurs)
            fresh.becomes(path);
        if (isOurs || fresh.becomesNew(path))
            return leftovers.note(path);
    }
}

// Takes owner and rights of the old one.
void begin(NewFile& fresh, const ReplacedFile& target)
{
    if (target.exists)
        fresh.takeOver(target.old);
}

QByteArray endingOf(const QByteArray& path)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    const qsizetype dot = name.lastIndexOf('.');
    return dot < 0 ? QByteArray() : name.mid(dot).toLower();
}

// From the disk into the old one's place.
void end(NewFile& fresh, const ReplacedFile& target)
{
    fresh.sync();
    fresh.becomes(target.path);
}

} // namespace

void replaceWhole(const QByteArray& file, const QByteArray& content)
{
    const ReplacedFile target = ReplacedFile::of(file);
    NewFile fresh = NewFile::ofAnInstant(target.directory);
    try {
        begin(fresh, target);
        fresh.write(content);
        end(fresh, target);
    } catch (const RunTimeError&) {
        if (fresh.holdsAnything())
            resumeNext([&] { leaveBeside(fresh, target); });
        throw;
    }
    makeDurable(target.directory);
}

struct FileInPieces::Parts {
    ReplacedFile target;
    NewFile fresh = NewFile::ofAWhile(target.directory);
};

FileInPieces::FileInPieces(const QByteArray& file) : m_parts(new Parts{ReplacedFile::of(file)})
{
    if (endingOf(m_parts->target.path) != endingOf(file))
        throw RunTimeError(ErrorNumber::PermissionDenied);
    begin(m_parts->fresh, m_parts->target);
}

FileInPieces::~FileInPieces() = default;

// Whatever the step throws, the new file is gone then.
template <typename Step>
void FileInPieces::tryStep(Step&& step)
{
    if (!m_parts)
        throw RunTimeError(ErrorNumber::BadFileMode);
    try {
        step(*m_parts);
    } catch (const RunTimeError&) {
        m_parts.reset();
        throw;
    }
}

void FileInPieces::write(QByteArrayView piece)
{
    tryStep([&](Parts& parts) { parts.fresh.write(piece); });
}

void FileInPieces::commit()
{
    tryStep([](Parts& parts) { end(parts.fresh, parts.target); });
    makeDurable(m_parts->target.directory);
    m_parts.reset();
}

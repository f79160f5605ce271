#include "system/files/readahead.h"

#include "base/filenametext.h"
#include "posix/descriptor.h"
#include "system/files/fileopener.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>

#include <algorithm>

namespace {

constexpr qsizetype kWindow = 512; // files
constexpr int kLongestPause = 16;  // directories

struct Tail {
    Descriptor file;
    off_t offset = 0;
};

Tail openTail(int directory, const QString& name, int bytes)
{
    Tail tail{Descriptor(openQuietly(directory, filenametext::toBytes(name).constData()))};
    struct stat status {};
    if (!tail.file || fstat(tail.file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    tail.offset = std::max<off_t>(0, status.st_size - bytes);
    return tail;
}

// A file system that cannot tell counts as slow.
bool isInMemory(const Tail& tail)
{
    char byte = 0;
    const iovec to{&byte, 1};
    return preadv2(tail.file.get(), &to, 1, tail.offset, RWF_NOWAIT) >= 0;
}

} // namespace

void ReadAhead::expectTails(const QByteArray& directory, const QStringList& names, int bytes)
{
    if (names.size() < 2 || m_pause-- > 0)
        return;
    const Descriptor opened(open(directory.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const Tail last = openTail(opened.get(), names.last(), bytes);
    m_inARow = last.file && isInMemory(last) ? m_inARow + 1 : 0;
    m_pause = std::min(m_inARow, kLongestPause);
    if (m_inARow > 0)
        return;
    const qsizetype count = std::min(names.size(), kWindow);
    for (qsizetype i = 0; i < count; ++i) {
        const Tail tail = openTail(opened.get(), names[i], bytes);
        if (tail.file)
            posix_fadvise(tail.file.get(), tail.offset, bytes, POSIX_FADV_WILLNEED);
    }
}

#include "posix/mounttable.h"

#include <QList>

#include <fcntl.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/vfs.h>

namespace {

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

// Blanks, tabs, line ends and backslashes stand as "\040" and the like.
QByteArray unescaped(QByteArrayView field)
{
    QByteArray text;
    text.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && isOctal(field[i + 1]) && isOctal(field[i + 2]) &&
            isOctal(field[i + 3])) {
            text += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                      (field[i + 3] - '0'));
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

// A line reads "36 35 98:0 /root /place options [more ...] - type source options".
bool readMount(const QByteArray& line, Mount& mount)
{
    constexpr int kPlace = 4;
    constexpr int kFirstOptional = 6;
    const QList<QByteArray> fields = line.split(' ');
    const qsizetype dash = fields.indexOf("-", kFirstOptional);
    if (dash < 0 || dash + 2 >= fields.size() || !fields[kPlace].startsWith('/'))
        return false;
    mount = {unescaped(fields[kPlace]), unescaped(fields[dash + 1]), unescaped(fields[dash + 2])};
    return true;
}

bool isOfKernel(int descriptor)
{
    struct statfs system {};
    return fstatfs(descriptor, &system) == 0 && system.f_type == PROC_SUPER_MAGIC;
}

} // namespace

std::vector<Mount> parseMounts(QByteArrayView mountinfo)
{
    std::vector<Mount> mounts;
    for (const QByteArray& line : mountinfo.toByteArray().split('\n')) {
        Mount mount;
        if (!readMount(line, mount))
            continue;
        std::erase_if(mounts, [&](const Mount& hidden) { return hidden.directory == mount.directory; });
        mounts.push_back(mount);
    }
    return mounts;
}

MountTable::MountTable(QByteArray file)
    : m_file(std::move(file)), m_watched(open(m_file.constData(), O_RDONLY | O_CLOEXEC)),
      m_ordinary(!isOfKernel(m_watched.get()))
{
    if (m_ordinary)
        m_stamp = stampOf(m_file);
}

bool MountTable::changed()
{
    if (m_ordinary)
        return std::exchange(m_stamp, stampOf(m_file)) != m_stamp;
    pollfd watched{m_watched.get(), POLLPRI, 0};
    return poll(&watched, 1, 0) > 0 && (watched.revents & (POLLPRI | POLLERR)) != 0;
}

std::vector<Mount> MountTable::read() const
{
    const Descriptor opened(open(m_file.constData(), O_RDONLY | O_CLOEXEC));
    QByteArray text;
    char block[16384];
    for (ssize_t count = 0; (count = ::read(opened.get(), block, sizeof block)) > 0;)
        text.append(block, count);
    return parseMounts(text);
}

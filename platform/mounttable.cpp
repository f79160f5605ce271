#include "platform/mounttable.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/vfs.h>

namespace {

bool isOfKernel(int descriptor)
{
    struct statfs system {};
    return fstatfs(descriptor, &system) == 0 && system.f_type == PROC_SUPER_MAGIC;
}

} // namespace

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

#include "platform/siblings.h"

#include "platform/fileopener.h"

#include <fcntl.h>

namespace {

constexpr std::chrono::milliseconds kTrusted(500);

} // namespace

int Siblings::open(const QByteArray& path)
{
    const qsizetype name = path.lastIndexOf('/') + 1;
    const QByteArrayView directory = QByteArrayView(path).first(name);
    if (directory != m_path) {
        m_path = directory.toByteArray();
        m_directory.reset();
        return openQuietly(AT_FDCWD, path.constData());
    }
    if (!isHeld())
        hold();
    return m_directory ? openQuietly(m_directory.get(), path.constData() + name)
                       : openQuietly(AT_FDCWD, path.constData());
}

bool Siblings::isHeld() const
{
    return m_directory && Clock::now() < m_until;
}

void Siblings::hold()
{
    m_directory.reset(::open(m_path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    m_until = Clock::now() + kTrusted;
}

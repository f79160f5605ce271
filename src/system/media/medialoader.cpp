#include "system/media/medialoader.h"

#include "posix/descriptor.h"
#include "system/media/mediamodule.h"
#include "system/media/silentmedia.h"

#include <QString>

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>

namespace {

// The loader maps what the headers promise and dies of a file that was cut off. The table of sections is
// the last thing in it.
bool isWhole(const QByteArray& path)
{
    const Descriptor file(open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    ElfW(Ehdr) header{};
    if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        pread(file.get(), &header, sizeof header, 0) != sizeof header)
        return false;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    const std::uint64_t table = std::uint64_t{header.e_shentsize} * header.e_shnum;
    return header.e_shoff <= size && size - header.e_shoff >= table;
}

QString loadersReason()
{
    const char* text = dlerror();
    return text ? QString::fromLocal8Bit(text) : QStringLiteral("it cannot be loaded");
}

// Returns null, and the reason, when there is none.
void* entryOf(const QByteArray& path, const char* name, QString& reason)
{
    // Without a slash the loader would look for it in the system's directories.
    if (!path.startsWith('/') || !isWhole(path)) {
        reason = QStringLiteral("the file is missing or damaged");
        return nullptr;
    }
    void* module = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* entry = module ? dlsym(module, name) : nullptr;
    if (!entry)
        reason = loadersReason();
    return entry;
}

MediaMachine* load(const QByteArray& path, Drives& drives, QString& reason)
{
    void* entry = entryOf(path, mediamodule::kEntry, reason);
    if (!entry)
        return nullptr;
    MediaMachine* machine = reinterpret_cast<mediamodule::Entry*>(entry)(mediamodule::kBuild, drives);
    if (!machine)
        reason = QStringLiteral("it belongs to another version of the program");
    return machine;
}

} // namespace

MediaMachine& LoadedMediaMachine::machine()
{
    if (m_machine)
        return *m_machine;
    QString reason;
    m_machine.reset(load(m_module, m_drives, reason));
    if (!m_machine)
        m_machine = std::make_unique<SilentMediaMachine>(
            QStringLiteral("%1, which plays sound and film, cannot be used: %2.")
                .arg(QString::fromLocal8Bit(m_module), reason));
    return *m_machine;
}

bool prepareLoadedMedia(const QByteArray& module)
{
    QString reason;
    void* entry = entryOf(module, mediamodule::kPreparation, reason);
    return entry && reinterpret_cast<mediamodule::Preparation*>(entry)(mediamodule::kBuild);
}

#include "posix/volumelabel.h"

#include "posix/descriptor.h"

#include <blkid/blkid.h>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace volumelabel {

namespace {

// Labels of fixed width come with the blanks that fill them.
QString toLabel(QByteArrayView bytes)
{
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    return QString::fromUtf8(bytes.first(end - bytes.begin())).trimmed();
}

// The device manager writes what a file name cannot hold as "\x2f".
QByteArray withoutHexForms(const QByteArray& name)
{
    QByteArray text;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name[i] == '\\' && i + 3 < name.size() && name[i + 1] == 'x') {
            text += QByteArray::fromHex(name.mid(i + 2, 2));
            i += 3;
        } else {
            text += name[i];
        }
    }
    return text;
}

// Returns 0 when it is no device.
dev_t deviceNumber(const QByteArray& file)
{
    struct stat status {};
    const bool isDevice =
        stat(file.constData(), &status) == 0 && (S_ISBLK(status.st_mode) || S_ISCHR(status.st_mode));
    return isDevice ? status.st_rdev : 0;
}

} // namespace

QString ofDirectory(const QByteArray& directory)
{
    const Descriptor opened(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
    char label[FSLABEL_MAX] = {};
    if (!opened || ioctl(opened.get(), FS_IOC_GETFSLABEL, label) != 0)
        return {};
    return toLabel(QByteArrayView(label, FSLABEL_MAX));
}

QString ofLinks(const QByteArray& directory, const QByteArray& device)
{
    const dev_t wanted = deviceNumber(device);
    const std::unique_ptr<DIR, int (*)(DIR*)> links(wanted == 0 ? nullptr : opendir(directory.constData()),
                                                    closedir);
    while (const dirent* entry = links ? readdir(links.get()) : nullptr) {
        const QByteArray name(entry->d_name);
        if (deviceNumber(directory + '/' + name) == wanted)
            return toLabel(withoutHexForms(name));
    }
    return {};
}

QString ofDevice(const QByteArray& device)
{
    // It must not wait: an optical drive must not pull its tray in to be asked.
    const Descriptor opened(open(device.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const std::unique_ptr<blkid_struct_probe, void (*)(blkid_probe)> probe(blkid_new_probe(),
                                                                           blkid_free_probe);
    const char* label = nullptr;
    if (!opened || !probe || blkid_probe_set_device(probe.get(), opened.get(), 0, 0) != 0 ||
        blkid_probe_enable_superblocks(probe.get(), 1) != 0 ||
        blkid_probe_set_superblocks_flags(probe.get(), BLKID_SUBLKS_LABEL) != 0 ||
        blkid_do_safeprobe(probe.get()) != 0 ||
        blkid_probe_lookup_value(probe.get(), "LABEL", &label, nullptr) != 0)
        return {};
    return toLabel(QByteArrayView(label));
}

} // namespace volumelabel

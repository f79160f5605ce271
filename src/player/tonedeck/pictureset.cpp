#include "player/tonedeck/pictureset.h"

#include "platform/drives.h"
#include "player/packedsets/packedset.h"
#include "player/playlist/modcommon.h"
#include "player/tonedeck/skinfiles.h"

namespace {

using packedset::Fault;

QString textOf(Fault fault)
{
    switch (fault) {
    case Fault::None:
        break;
    case Fault::Damaged:
        return QStringLiteral("This set of pictures is damaged, or is no ZIP archive:");
    case Fault::Protected:
        return QStringLiteral("This set of pictures is protected by a password:");
    case Fault::TooLarge:
        return QStringLiteral("This set of pictures is too large:");
    case Fault::NoReader:
        return QStringLiteral("The library that unpacks sets of pictures (libarchive) is not installed:");
    case Fault::NoPicture:
        return QStringLiteral("There is no main.bmp and no main.png in this set of pictures:");
    case Fault::CannotWrite:
        return QStringLiteral(
            "This set of pictures cannot be unpacked, because its directory cannot be written:");
    }
    return {};
}

} // namespace

std::optional<QString> PictureSets::unpacked(const QString& path) const
{
    const std::optional<QByteArray> bytes = readWhole(m_context.fileNumbers, path, kMostZipBytes);
    if (!bytes) {
        m_tell(QStringLiteral("This set of pictures cannot be read, or is too large:\r") + path);
        return std::nullopt;
    }
    const packedset::Unpacked set = packedset::unpack(*bytes, GetFileName(path), m_context.pictureSets);
    const QString directory =
        set.fault == Fault::None ? m_context.platform.drives.drivePath(set.directory) : QString();
    if (!directory.isEmpty())
        return AddSlash(directory);
    const Fault fault = set.fault == Fault::None ? Fault::CannotWrite : set.fault;
    m_tell(textOf(fault) + u'\r' + path);
    return std::nullopt;
}

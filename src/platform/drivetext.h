// Writes how a drive is shown in a list to choose from, "D: [ROCK_01]", and names a picture of its kind.
#pragma once

#include "platform/drives.h"

inline QString driveIconName(DriveKind kind)
{
    switch (kind) {
    case DriveKind::Fixed:
        return QStringLiteral(":/icons/drive-hard.svg");
    case DriveKind::Optical:
        return QStringLiteral(":/icons/drive-optical.svg");
    case DriveKind::Network:
        return QStringLiteral(":/icons/drive-network.svg");
    case DriveKind::Removable:
    case DriveKind::Declared:
        break;
    }
    return QStringLiteral(":/icons/drive-removable.svg");
}

inline QString driveText(Drives& drives, const Drive& drive)
{
    const QString letter = drive.letter + QStringLiteral(":");
    const QString name = drives.volumeName(letter);
    return name.isEmpty() ? letter : letter + QStringLiteral(" [%1]").arg(name);
}

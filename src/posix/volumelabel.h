// The label of a file system.
#pragma once

#include <QByteArray>
#include <QString>

namespace volumelabel {

// Each is empty when there is no label or it cannot be told.

// Of the file system that holds a directory, by asking the kernel; needs no privilege, and not all kinds
// answer.
QString ofDirectory(const QByteArray& directory);

// Of a device file, by the links "<directory>/<label>" that the device manager keeps.
QString ofLinks(const QByteArray& directory, const QByteArray& device);

// Of a device file or an image, by reading it; takes the right to.
QString ofDevice(const QByteArray& device);

} // namespace volumelabel

// Reads the label of a file system.
#pragma once

#include <QByteArray>
#include <QString>

namespace volumelabel {

// Each is empty when there is no label or it cannot be told.

// Asks the kernel for that of the file system that holds a directory; this needs no privilege, and not all
// kinds answer.
QString ofDirectory(const QByteArray& directory);

// Looks for that of a device file among the links "<directory>/<label>" that the device manager keeps.
QString ofLinks(const QByteArray& directory, const QByteArray& device);

// Reads that of a device file or an image, which takes the right to.
QString ofDevice(const QByteArray& device);

} // namespace volumelabel

// Finds the true length of media that do not tell it.
#pragma once

#include <QByteArray>

#include <optional>

// Runs through the whole file without decoding it. The length is in nanoseconds, and nothing when the file
// cannot be read.
std::optional<qint64> scannedLength(const QByteArray& file);

// The true length of media that do not tell it.
#pragma once

#include <QByteArray>

#include <optional>

// Runs through the whole file without decoding it. In nanoseconds; nothing when it cannot be read.
std::optional<qint64> scannedLength(const QByteArray& file);

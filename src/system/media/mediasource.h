// Tells where a medium is played from.
#pragma once

#include <QByteArray>

#include <optional>

struct MediaSource {
    enum class Kind { File, Module, Disc };

    Kind kind = Kind::File;
    QByteArray path{};          // of the machine: the file, the disc's device or its cue sheet
    std::optional<int> track{}; // of a disc; nothing: its first audio track
};

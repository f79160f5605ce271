// Opens sets of pictures that come packed: a set's file becomes a directory that an import skin can take them
// from.
#pragma once

#include "player/playback/playercontext.h"

#include <functional>
#include <optional>

class PictureSets {
public:
    PictureSets(const PlayerContext& context, std::function<void(const QString&)> tell)
        : m_context(context), m_tell(std::move(tell))
    {
    }

    // Returns it with a trailing backslash, and nothing when the file gives no set; why, was told then.
    std::optional<QString> unpacked(const QString& path) const;

private:
    PlayerContext m_context;
    std::function<void(const QString&)> m_tell;
};

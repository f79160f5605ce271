// The pipelines that play media, in state NULL.
#pragma once

#include "system/media/gstpointer.h"
#include "system/media/mediasource.h"

#include <optional>

namespace pipelinefactory {

struct DiscTrack {
    int ordinal;   // counts the audio tracks alone, from 1
    qint64 length; // milliseconds
};

// Of a source that is a disc; nothing when the disc has no such audio track.
std::optional<DiscTrack> trackOf(const MediaSource& source);

// Plays to `sound`. `ordinal` is that of a disc's track. Null when a plug-in is missing.
GstPointer<GstElement> of(const MediaSource& source, int ordinal, GstElement* sound);

} // namespace pipelinefactory

// Makes the pipelines that play media, in state NULL.
#pragma once

#include "system/media/gstpointer.h"
#include "system/media/mediasource.h"

#include <optional>

namespace pipelinefactory {

struct DiscTrack {
    int ordinal;   // counts the audio tracks alone, from 1
    qint64 length; // milliseconds
};

// Makes that of a source that is a disc, and nothing when the disc has no such audio track.
std::optional<DiscTrack> trackOf(const MediaSource& source);

// It plays to `sound`. `ordinal` is that of a disc's track. It is null when a plug-in is missing.
GstPointer<GstElement> of(const MediaSource& source, int ordinal, GstElement* sound);

} // namespace pipelinefactory

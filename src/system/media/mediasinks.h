// Knows where sound and pictures go.
#pragma once

#include "system/media/gstpointer.h"

#include <QString>

// Is the output for sound, connected (in state READY): the description in SONGBIN_AUDIO_SINK, else the sound
// server, else the sound card, else nothing at all, at the pace of the clock. It is null, with the reason,
// when the description cannot be used. A server that does not answer is given up within a third of a second
// and not asked again for some seconds.
struct AudioSink {
    enum class Kind { Device, Nowhere, Described };

    GstPointer<GstElement> element{};
    Kind kind = Kind::Device;
};
AudioSink makeAudioSink(QString* reason);

// Tells whether a sink that is made now would be heard. It waits like makeAudioSink.
bool isSoundThere();

// Makes a window of its own, and without a display nothing.
GstPointer<GstElement> makeVideoSink();

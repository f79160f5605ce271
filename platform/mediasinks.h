// Where sound and pictures go.
#pragma once

#include "platform/gstpointer.h"

#include <QString>

// The output for sound, connected (in state READY): the description in SONGBIN_AUDIO_SINK, else the sound
// server, else the sound card, else nothing at all, at the pace of the clock. Null, with the reason, when the
// description cannot be used. A server that does not answer is given up within half a second and not asked
// again for some seconds.
GstPointer<GstElement> makeAudioSink(QString* reason);

// A window of its own; without a display nothing.
GstPointer<GstElement> makeVideoSink();

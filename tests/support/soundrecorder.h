// Takes down what a media device plays, as 16 bit stereo with 44,100 frames a second.
#pragma once

#include "tests/support/mediafiles.h"

class SoundRecorder {
public:
    // Media devices that are opened from now on play into this recording, until `restore` or the end.
    SoundRecorder();
    ~SoundRecorder();
    SoundRecorder(const SoundRecorder&) = delete;
    SoundRecorder& operator=(const SoundRecorder&) = delete;

    void restore();
    // Returns those so far.
    Frames frames() const;

private:
    int m_file;
    bool m_installed = true;
    bool m_had;
    QByteArray m_old;
};

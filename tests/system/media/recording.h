// Is a plain file that everything which is played goes into, as 16-bit stereo at 44,100 Hz.
#pragma once

#include "posix/descriptor.h"
#include "tests/support/temporary.h"

#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <stdlib.h>

class Recording {
public:
    Recording()
        : m_file(::open(m_directory.at("sound").constData(), O_CREAT | O_RDWR | O_CLOEXEC | O_APPEND, 0600))
    {
        if (!m_file)
            throw std::runtime_error("no recording");
        const std::string sink = "audioconvert ! audioresample ! "
                                 "audio/x-raw,format=S16LE,rate=44100,channels=2 ! fdsink sync=true fd=" +
                                 std::to_string(m_file.get());
        setenv("SONGBIN_AUDIO_SINK", sink.c_str(), 1);
    }
    ~Recording() { unsetenv("SONGBIN_AUDIO_SINK"); }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    QByteArray sound() const { return m_directory.read("sound"); }

private:
    Temporary m_directory;
    Descriptor m_file;
};

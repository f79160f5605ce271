#include "tests/support/soundrecorder.h"

#include <QDir>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kVariable = "SONGBIN_AUDIO_SINK";

// A plain file takes whatever comes at once, so that only the sink's clock sets the pace.
int openPlainFile()
{
    QByteArray name = QDir::tempPath().toUtf8() + "/recording-XXXXXX";
    const int file = mkostemp(name.data(), O_CLOEXEC);
    if (file < 0)
        throw std::runtime_error("no temporary file for a recording");
    unlink(name.constData());
    return file;
}

} // namespace

SoundRecorder::SoundRecorder()
    : m_file(openPlainFile()), m_had(qEnvironmentVariableIsSet(kVariable)), m_old(qgetenv(kVariable))
{
    qputenv(kVariable, "audioconvert ! audioresample ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! "
                       "fdsink sync=true fd=" +
                           QByteArray::number(m_file));
}

SoundRecorder::~SoundRecorder()
{
    restore();
    close(m_file);
}

void SoundRecorder::restore()
{
    if (!m_installed)
        return;
    m_installed = false;
    if (m_had)
        qputenv(kVariable, m_old);
    else
        qunsetenv(kVariable);
}

Frames SoundRecorder::frames() const
{
    struct stat status {};
    if (fstat(m_file, &status) != 0)
        return {};
    Frames frames(static_cast<std::size_t>(status.st_size) / sizeof(Frame));
    const auto wanted = static_cast<ssize_t>(frames.size() * sizeof(Frame));
    if (pread(m_file, frames.data(), static_cast<std::size_t>(wanted), 0) != wanted)
        throw std::runtime_error("the recording cannot be read");
    return frames;
}

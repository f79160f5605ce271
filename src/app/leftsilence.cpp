#include "app/leftsilence.h"

#include "platform/mediamachine.h"
#include "player/playback/volumelevel.h"

#include <QTimer>

#include <algorithm>

namespace {

constexpr int kFirstPause = 20; // milliseconds
constexpr int kLongestPause = 1000;

} // namespace

LeftSilence::LeftSilence(MediaMachine& media, UserSettings& store, const Program& program)
    : m_media(media), m_store(store), m_program(program), m_pause(kFirstPause)
{
    QTimer::singleShot(0, this, [this] { begin(); });
}

LeftSilence::~LeftSilence() = default;

void LeftSilence::begin()
{
    if (!MuteNote(m_store, m_program).left())
        return;
    m_volume = m_media.makeVolume();
    m_level = std::make_unique<VolumeLevel>(*m_volume, m_store, m_program);
    look();
}

// The sound server answers when it likes, or is not there yet.
void LeftSilence::look()
{
    if (!m_level->settle()) {
        QTimer::singleShot(m_pause, this, [this] { look(); });
        m_pause = std::min(2 * m_pause, kLongestPause);
        return;
    }
    m_level.reset();
    m_volume.reset();
}

#include "player/playback/volumelevel.h"

#include "platform/wavevolume.h"
#include "player/playlist/modcommon.h"

#include <algorithm>
#include <cmath>
#include <utility>

VolumeLevel::~VolumeLevel()
{
    if (muted())
        toggleMute();
}

bool VolumeLevel::settle()
{
    if (!m_volume.isKnown())
        return false;
    if (const auto left = m_note.left()) {
        if (value() == 0.0F)
            set(*left);
        m_note.clear();
    }
    return true;
}

float VolumeLevel::value()
{
    return GetVolume(m_volume);
}

void VolumeLevel::set(float value)
{
    const bool wasMuted = std::exchange(m_muted, false);
    SetVolume(m_volume, std::clamp(value, 0.0F, 1.0F));
    if (wasMuted)
        m_note.drop();
}

void VolumeLevel::step(int percent)
{
    const float from = muted() ? m_before : value();
    set((std::round(from * 100) + static_cast<float>(percent)) / 100);
}

bool VolumeLevel::muted()
{
    if (m_muted && value() != 0.0F) {
        m_muted = false;
        m_note.drop();
    }
    return m_muted;
}

void VolumeLevel::toggleMute()
{
    if (muted())
        return set(m_before);
    if (!settle()) // what comes back would be a guess, and the note of a killed program would be gone
        return;
    m_before = value();
    m_note.keep(m_before);
    set(0);
    m_muted = true;
}

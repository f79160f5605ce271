#include "player/volumelevel.h"

#include "player/modcommon.h"

#include <algorithm>
#include <cmath>
#include <utility>

VolumeLevel::~VolumeLevel()
{
    if (muted())
        toggleMute();
}

float VolumeLevel::value()
{
    return GetVolume(m_volume);
}

void VolumeLevel::set(float value)
{
    m_muted = false;
    SetVolume(m_volume, std::clamp(value, 0.0F, 1.0F));
}

void VolumeLevel::step(int percent)
{
    const float from = muted() ? m_before : value();
    set((std::round(from * 100) + static_cast<float>(percent)) / 100);
}

bool VolumeLevel::muted()
{
    m_muted = m_muted && value() == 0.0F;
    return m_muted;
}

void VolumeLevel::toggleMute()
{
    if (muted())
        return set(m_before);
    m_before = value();
    set(0);
    m_muted = true;
}

#include "player/tonedeck/volumepanel.h"

#include "base/runtimeerror.h"
#include "platform/launcher.h"
#include "player/face/face.h"
#include "player/playback/playbackview.h"
#include "player/playback/player.h"
#include "player/playback/playersettings.h"
#include "player/tonedeck/playerwindow.h"

#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSoon = 20;    // milliseconds, until the system may have told its volume
constexpr int kLater = 1000; // where no sound server runs

} // namespace

void VolumePanel::settle()
{
    settle(kSoon);
}

void VolumePanel::settle(int pause)
{
    if (!m_player.volume().settle())
        settleLater(pause);
    else if (m_player.settings().StartMute != 0 && !muted())
        toggleMute();
    showVolume();
}

void VolumePanel::settleLater(int pause)
{
    QTimer::singleShot(pause, &m_face, [this, pause] {
        m_window.guard([&] {
            if (!m_window.isClosing())
                settle(std::min(2 * pause, kLater));
        });
    });
}

// What is read is a little less than what was set.
void VolumePanel::showVolume()
{
    const float value = volume();
    placeVolume(value);
    if (value != m_shownVolume)
        tellVolume(static_cast<int>(std::lround(value * 100)));
}

void VolumePanel::placeVolume(float value)
{
    SliderLayer& sliders = m_face.sliders();
    for (const int slider : {kVolumeSlider, kVolumeMirror})
        if (sliders.SliderDrag() != slider)
            sliders.SetSliderPos(slider, value);
}

void VolumePanel::tellVolume(int percent)
{
    m_shownVolume = volume();
    m_face.caption(Label::Volume, QStringLiteral("%1%").arg(percent));
    m_view.showLights();
}

float VolumePanel::volume() const
{
    return m_player.volume().value();
}

// The wish may come from outside, and be no number at all.
void VolumePanel::changeVolume(float wished)
{
    const float value = wished > 0 ? std::min(wished, 1.0F) : 0.0F;
    m_player.volume().set(value);
    placeVolume(value);
    tellVolume(static_cast<int>(value * 100));
}

void VolumePanel::changeVolumeBy(int percent)
{
    m_player.volume().step(percent);
    showVolume();
}

bool VolumePanel::muted() const
{
    return m_player.volume().muted();
}

void VolumePanel::toggleMute()
{
    m_player.volume().toggleMute();
    showVolume();
    m_view.showLights(); // also where there was no volume to take away
}

void VolumePanel::ShowMixer()
{
    try {
        m_player.context().platform.launcher.start(QStringLiteral("sndvol32.exe"));
    } catch (const RunTimeError&) {
        m_view.reportError(QStringLiteral("No volume mixer was found on this system."));
    }
}

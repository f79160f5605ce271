// Does what the window does for its face: size, place, outline, and what the face is told to ask for.
#include "player/playback/playersettings.h"
#include "player/tonedeck/frmtonedeck.h"
#include "player/tonedeck/windowposition.h"
#include "toolkit/widgets/windowing.h"

#include <QTimer>

#include <utility>

namespace {

constexpr int kWhereItIs = 0; // position codes
constexpr int kMiddle = 5;

} // namespace

bool frmTonedeck::scrollsName() const
{
    return m_player.settings().ScrollName != 0;
}

void frmTonedeck::skinLoads(bool begins)
{
    m_volume.showVolume();
    begins ? Timer1->stop() : Timer1->start();
}

void frmTonedeck::faceSized()
{
    setFixedSize(controls.scale.window());
    if (std::exchange(m_centres, false))
        placeByCode(kMiddle);
}

void frmTonedeck::placeByCode(int position)
{
    move(windowPosition(position, {pos(), size()}, workArea()));
}

// The window stays whole when nothing would be left of it, and when the outline is more than the window
// system takes.
void frmTonedeck::outlineChanged()
{
    setWindowOutline(*this, m_face.outline());
    m_face.setCut(mask());
}

// The window has come to another screen, or a panel takes part of this one. It does not follow in the midst
// of a drag, whose hold would be another place of the face then.
void frmTonedeck::fitScreen()
{
    if (m_drag.Dragging() || sliders().SliderDrag() != 0 || m_loader.loading() || m_face.fits())
        return;
    m_face.fit();
    placeByCode(kWhereItIs);
}

void frmTonedeck::Form_Paint()
{
    m_view.Form_Paint();
    m_clock.showClock();
}

// --- what its user wants --------------------------------------------------------------------------

void frmTonedeck::command(int code)
{
    guard([&] { DoIt(code); });
}

void frmTonedeck::volumeWished(float value)
{
    guard([&] { changeVolume(value); });
}

void frmTonedeck::positionWished(float part)
{
    const auto length = static_cast<double>(engine().TrackLength());
    guard([&] { engine().PlayFrom(static_cast<qint32>(static_cast<double>(part) * length)); });
}

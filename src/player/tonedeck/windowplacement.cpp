#include "player/tonedeck/windowplacement.h"

#include "player/playback/playersettings.h"
#include "player/playlist/modcommon.h"
#include "toolkit/widgets/windowing.h"

#include <QWidget>

namespace {

QRect inTwips(const QRect& pixels)
{
    return {toTwips(pixels.x()), toTwips(pixels.y()), toTwips(pixels.width()), toTwips(pixels.height())};
}

} // namespace

void SetOnTop(QWidget& window, bool onTop)
{
    setTopmost(window, onTop);
}

QRect GetWorkArea(const QWidget& window)
{
    return workArea(window);
}

void SnapWindow(QWidget& window, const PlayerSettings& settings)
{
    if (settings.WinSnap == 0)
        return;
    const QPoint place = snappedPosition(inTwips(window.frameGeometry()), inTwips(GetWorkArea(window)));
    const QPoint pixels(fromTwips(place.x()), fromTwips(place.y()));
    if (pixels != window.pos())
        window.move(pixels);
}

#include "system/mpris/mprisobject.h"

#include "platform/desktopcontrols.h"
#include "system/mpris/mprisvalues.h"

#include <utility>

MprisObject::MprisObject(ControlledPlayer& player) : m_player(player) {}

void MprisObject::later(mpris::Request request)
{
    QMetaObject::invokeMethod(
        this, [this, asked = std::move(request)] { asked(m_player); }, Qt::QueuedConnection);
}

void MprisObject::laterIfAny(const std::optional<mpris::Request>& request)
{
    if (request)
        later(*request);
}

qlonglong MprisObject::position() const
{
    return mpris::microseconds(m_player.report().position);
}

QVariantMap MprisObject::takeChanges()
{
    const QVariantMap before = std::exchange(m_told, mpris::valuesOf(m_player.report()));
    QVariantMap changes;
    for (auto value = m_told.cbegin(); value != m_told.cend(); ++value)
        if (before.value(value.key()) != value.value())
            changes.insert(value.key(), value.value());
    return changes;
}

void MprisObject::tellJump(qint32 position)
{
    Q_EMIT jumped(mpris::microseconds(position));
}

// Says what the player reports as MPRIS has it.
#pragma once

#include <QDBusObjectPath>
#include <QVariantMap>

struct PlayerReport;

namespace mpris {

// Makes the properties of org.mpris.MediaPlayer2.Player that change, without Position.
QVariantMap valuesOf(const PlayerReport& report);

bool canSeek(const PlayerReport& report);
QDBusObjectPath trackOf(const PlayerReport& report);
qlonglong microseconds(qint32 milliseconds); // of a time; one before the beginning is 0

} // namespace mpris

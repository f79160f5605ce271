// Looks at what comes from the bus before it reaches the player. Positions and offsets are microseconds and
// any numbers at all.
#pragma once

#include <QDBusObjectPath>
#include <QString>

#include <functional>
#include <optional>

class ControlledPlayer;

namespace mpris {

using Request = std::function<void(ControlledPlayer&)>;

Request seek(qlonglong offset); // to the next entry from beyond the end
Request setPosition(const QDBusObjectPath& track, qlonglong position);

// It is nothing when the wish means nothing and is ignored.
std::optional<Request> setVolume(double volume);
std::optional<Request> setRate(double rate);
std::optional<Request> setLoopStatus(const QString& status);
std::optional<Request> openUri(const QString& address); // nothing but files of this machine

} // namespace mpris

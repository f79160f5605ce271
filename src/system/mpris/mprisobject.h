// The bus shows this object: it holds what was told of the player last, and passes requests on to it.
#pragma once

#include "system/mpris/mprisrequests.h"

#include <QDBusContext>
#include <QObject>
#include <QVariantMap>

class MprisObject : public QObject, public QDBusContext {
    Q_OBJECT

public:
    explicit MprisObject(ControlledPlayer& player);

    // Runs from the event loop. A request may destroy this object, which must not happen under a call that
    // the bus is delivering to it.
    void later(mpris::Request request);
    void laterIfAny(const std::optional<mpris::Request>& request);

    // Serves all properties that change; what was told is what is read, so that both agree.
    QVariant told(const QString& property) const { return m_told.value(property); }
    qlonglong position() const; // now, in microseconds

    QVariantMap takeChanges(); // since the last time
    void tellJump(qint32 position);

Q_SIGNALS:
    void jumped(qlonglong position);

private:
    ControlledPlayer& m_player;
    QVariantMap m_told{};
};

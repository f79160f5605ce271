// Connects to the session bus and shows one object there under the names of MPRIS. Nothing here waits.
#pragma once

#include "system/mpris/busgreeting.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>

class MprisBus : public QObject {
    Q_OBJECT

public:
    using Ready = std::function<void()>;

    // `ready` is called from the event loop right before the object can be seen; never without a bus.
    MprisBus(QObject& object, Ready ready);
    ~MprisBus() override; // the names and the object are gone from the bus

    bool shows() const;                              // the object, to somebody
    void tellChanges(const QVariantMap& properties); // of the player's interface

private:
    using Answer = std::function<void(const QDBusMessage& reply)>;

    void open(const QString& address);
    void ask(const char* method, const QVariantList& arguments, const Answer& answer);
    void show();
    void takeName(const QString& name, const QString& otherwise);

    QObject& m_object;
    Ready m_ready;
    QString m_name;
    QDBusConnection m_connection;
    bool m_isShown = false;
    BusGreeting m_greeting;
};

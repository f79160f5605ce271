// Is a program of its own as far as the bus can tell: it asks the player's object and keeps what it tells.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <vector>

inline constexpr auto kPlayerName = "org.mpris.MediaPlayer2.songbin";
inline constexpr auto kApplicationInterface = "org.mpris.MediaPlayer2";
inline constexpr auto kPlayerInterface = "org.mpris.MediaPlayer2.Player";
inline constexpr auto kPropertiesInterface = "org.freedesktop.DBus.Properties";

class BusClient : public QObject {
    Q_OBJECT

public:
    explicit BusClient(const QString& address);
    ~BusClient() override;

    // They ask the player with that name; each waits for the answer with the event loop running.
    QDBusMessage call(const char* interface, const char* method, const QVariantList& arguments = {});
    QDBusPendingCall begin(const char* interface, const char* method, const QVariantList& arguments = {});
    QDBusMessage set(const char* property, const QVariant& value);
    QVariant get(const char* interface, const char* property);
    QVariantMap getAll(const char* interface);

    QStringList names(); // of all players on the bus
    qsizetype connections();
    bool sees(const QString& name) { return names().contains(name); }

    QString player = QString::fromUtf8(kPlayerName);

    struct Change {
        QString interface;
        QVariantMap values;
        QStringList invalidated;
    };
    std::vector<Change> changes{};
    std::vector<qlonglong> jumps{};

private Q_SLOTS:
    void changed(const QString& interface, const QVariantMap& values, const QStringList& invalidated);
    void jumped(qlonglong position);

private:
    QStringList allNames();

    QString m_name;
    QDBusConnection m_connection;
};

// Returns a map inside a variant, which comes as what it was on the bus.
QVariantMap mapOf(const QVariant& value);

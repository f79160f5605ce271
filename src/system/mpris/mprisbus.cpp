#include "system/mpris/mprisbus.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QStringList>

#include <utility>

namespace {

constexpr auto kPath = "/org/mpris/MediaPlayer2";
constexpr auto kPlayer = "org.mpris.MediaPlayer2.Player";
constexpr auto kName = "org.mpris.MediaPlayer2.songbin";
constexpr auto kBus = "org.freedesktop.DBus";

QString connectionName()
{
    static int number = 0;
    return QStringLiteral("mpris-%1").arg(++number);
}

} // namespace

MprisBus::MprisBus(QObject& object, Ready ready)
    : m_object(object), m_ready(std::move(ready)), m_name(connectionName()), m_connection(m_name),
      m_greeting([this](const QString& address) { open(address); })
{
}

// The library closes the connection later, in its own thread; nothing may be delivered to the object until
// then.
MprisBus::~MprisBus()
{
    if (m_isShown)
        m_connection.unregisterObject(QString::fromLatin1(kPath));
    m_connection = QDBusConnection(QString()); // the last one but the library's own
    QDBusConnection::disconnectFromPeer(m_name);
}

// It is opened as if it were no bus, because the library's way to open a bus waits for it to answer; what
// makes it a bus follows here.
void MprisBus::open(const QString& address)
{
    m_connection = QDBusConnection::connectToPeer(address, m_name);
    if (m_connection.isConnected())
        ask("Hello", {}, [this](const QDBusMessage&) { show(); });
}

void MprisBus::ask(const char* method, const QVariantList& arguments, const Answer& answer)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(QString::fromLatin1(kBus), QStringLiteral("/org/freedesktop/DBus"),
                                       QString::fromLatin1(kBus), QString::fromLatin1(method));
    question.setArguments(arguments);
    auto* const watcher = new QDBusPendingCallWatcher(m_connection.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, answer] {
        watcher->deleteLater();
        if (!watcher->isError())
            answer(watcher->reply());
    });
}

void MprisBus::show()
{
    m_ready();
    m_isShown = m_connection.registerObject(QString::fromLatin1(kPath), &m_object);
    const QString name = QString::fromLatin1(kName);
    takeName(name, name + QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid()));
}

void MprisBus::takeName(const QString& name, const QString& otherwise)
{
    constexpr uint kDoNotQueue = 4;
    constexpr uint kTaken = 3;
    ask("RequestName", {name, kDoNotQueue}, [this, otherwise](const QDBusMessage& reply) {
        const QVariantList answers = reply.arguments();
        if (!answers.isEmpty() && answers.first().toUInt() == kTaken && !otherwise.isEmpty())
            takeName(otherwise, {});
    });
}

bool MprisBus::shows() const
{
    return m_isShown && m_connection.isConnected();
}

void MprisBus::tellChanges(const QVariantMap& properties)
{
    QDBusMessage signal = QDBusMessage::createSignal(QString::fromLatin1(kPath),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << QString::fromLatin1(kPlayer) << properties << QStringList();
    m_connection.send(signal);
}

#include "tests/support/busclient.h"
#include "tests/support/hung.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QTest>

namespace {

QString connectionName()
{
    static int number = 0;
    return QStringLiteral("client-%1").arg(++number);
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QDBusMessage answerOf(const QDBusPendingCall& call)
{
    if (!QTest::qWaitFor([&] { return call.isFinished(); }, kHung))
        return {};
    return call.reply();
}

} // namespace

QVariantMap mapOf(const QVariant& value)
{
    return value.canConvert<QDBusArgument>() ? qdbus_cast<QVariantMap>(value.value<QDBusArgument>())
                                             : value.toMap();
}

BusClient::BusClient(const QString& address)
    : m_name(connectionName()), m_connection(QDBusConnection::connectToBus(address, m_name))
{
    const QString path = text("/org/mpris/MediaPlayer2");
    m_connection.connect({}, path, text(kPropertiesInterface), text("PropertiesChanged"), this,
                         SLOT(changed(QString, QVariantMap, QStringList)));
    m_connection.connect({}, path, text(kPlayerInterface), text("Seeked"), this, SLOT(jumped(qlonglong)));
}

BusClient::~BusClient()
{
    m_connection = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(m_name);
}

QDBusPendingCall BusClient::begin(const char* interface, const char* method, const QVariantList& arguments)
{
    QDBusMessage question = QDBusMessage::createMethodCall(player, text("/org/mpris/MediaPlayer2"),
                                                           text(interface), text(method));
    question.setArguments(arguments);
    return m_connection.asyncCall(question, 9000);
}

QDBusMessage BusClient::call(const char* interface, const char* method, const QVariantList& arguments)
{
    return answerOf(begin(interface, method, arguments));
}

QDBusMessage BusClient::set(const char* property, const QVariant& value)
{
    return call(kPropertiesInterface, "Set",
                {text(kPlayerInterface), text(property), QVariant::fromValue(QDBusVariant(value))});
}

QVariant BusClient::get(const char* interface, const char* property)
{
    const QVariantList answer =
        call(kPropertiesInterface, "Get", {text(interface), text(property)}).arguments();
    return answer.isEmpty() ? QVariant() : answer.first().value<QDBusVariant>().variant();
}

QVariantMap BusClient::getAll(const char* interface)
{
    const QVariantList answer = call(kPropertiesInterface, "GetAll", {text(interface)}).arguments();
    return answer.isEmpty() ? QVariantMap() : mapOf(answer.first());
}

QStringList BusClient::allNames()
{
    const QString bus = text("org.freedesktop.DBus");
    const QDBusMessage question =
        QDBusMessage::createMethodCall(bus, text("/org/freedesktop/DBus"), bus, text("ListNames"));
    const QVariantList answer = answerOf(m_connection.asyncCall(question, 9000)).arguments();
    return answer.isEmpty() ? QStringList() : answer.first().toStringList();
}

QStringList BusClient::names()
{
    QStringList found = allNames().filter(text("org.mpris.MediaPlayer2."));
    found.sort();
    return found;
}

qsizetype BusClient::connections()
{
    return allNames().filter(QChar(u':')).size();
}

void BusClient::changed(const QString& interface, const QVariantMap& values, const QStringList& invalidated)
{
    changes.push_back({interface, values, invalidated});
}

void BusClient::jumped(qlonglong position)
{
    jumps.push_back(position);
}

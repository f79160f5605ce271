#include "database/connection/connectiontext.h"

#include "base/runtimeerror.h"

#include <QHash>

namespace {

[[noreturn]] void fail(const QString& text)
{
    throw RunTimeError(kConnectionError, text);
}

class PairReader {
public:
    explicit PairReader(QStringView text) : m_rest(text) {}

    // Is false at the end of the text.
    bool next()
    {
        m_rest = m_rest.trimmed();
        while (m_rest.startsWith(u';'))
            m_rest = m_rest.sliced(1).trimmed();
        if (m_rest.isEmpty())
            return false;
        readKey();
        readValue();
        return true;
    }

    QString key() const { return m_key; }
    QString value() const { return m_value; }

private:
    void readKey()
    {
        const qsizetype equals = m_rest.indexOf(u'=');
        if (equals < 0)
            fail(QStringLiteral("The connection text has a part without a value: ") + m_rest.toString());
        m_key = m_rest.first(equals).trimmed().toString().toLower();
        m_rest = m_rest.sliced(equals + 1).trimmed();
    }

    void readValue()
    {
        if (m_rest.startsWith(u'\'') || m_rest.startsWith(u'"')) {
            readQuoted(m_rest.front());
            return;
        }
        const qsizetype end = m_rest.indexOf(u';');
        m_value = m_rest.first(end < 0 ? m_rest.size() : end).trimmed().toString();
        m_rest = end < 0 ? QStringView() : m_rest.sliced(end);
    }

    void readQuoted(QChar quote)
    {
        m_value.clear();
        for (qsizetype at = 1; at < m_rest.size(); ++at) {
            if (m_rest[at] == quote && !m_rest.sliced(at + 1).startsWith(quote)) {
                m_rest = m_rest.sliced(at + 1).trimmed();
                if (!m_rest.isEmpty() && !m_rest.startsWith(u';'))
                    fail(QStringLiteral("The connection text has something behind a quoted value: ") +
                         m_rest.toString());
                return;
            }
            if (m_rest[at] == quote)
                ++at;
            m_value += m_rest[at];
        }
        fail(QStringLiteral("The connection text has a quoted value without an end."));
    }

    QStringView m_rest;
    QString m_key;
    QString m_value;
};

} // namespace

ConnectionText parseConnectionText(const QString& text)
{
    QHash<QString, QString> values;
    for (PairReader pair(text); pair.next();)
        values.insert(pair.key(), pair.value());

    const QString provider = values.value(QStringLiteral("provider"));
    if (provider.compare(QLatin1String("Microsoft.Jet.OLEDB.4.0"), Qt::CaseInsensitive) != 0)
        fail(provider.isEmpty() ? QStringLiteral("The connection text names no provider.")
                                : QStringLiteral("The provider is not known: ") + provider);
    ConnectionText result{values.value(QStringLiteral("data source"))};
    if (result.dataSource.isEmpty())
        fail(QStringLiteral("The connection text names no data source."));
    return result;
}

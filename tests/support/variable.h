// Sets a variable of this process for as long as it lives; with a null value the variable is not set.
#pragma once

#include <QByteArray>

class Variable {
public:
    Variable(const char* name, const QByteArray& value)
        : m_name(name), m_had(qEnvironmentVariableIsSet(name)), m_old(qgetenv(name))
    {
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
    ~Variable() { m_had ? qputenv(m_name, m_old) : qunsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* m_name;
    bool m_had;
    QByteArray m_old;
};

#include "database/connection/stoppable.h"

#include "database/connection/connection.h"

Stoppable::Stoppable(Connection& connection, std::function<bool()> goesOn) : m_connection(connection)
{
    m_connection.setGoesOn(std::move(goesOn));
}

Stoppable::~Stoppable()
{
    m_connection.setGoesOn({});
}

#include "platform/opengroups.h"

#include "platform/connection.h"

void OpenGroups::add(Connection& connection)
{
    m_connections.push_back(&connection);
}

void OpenGroups::remove(Connection& connection)
{
    std::erase(m_connections, &connection);
}

void OpenGroups::resumeAll()
{
    for (Connection* connection : std::vector<Connection*>(m_connections))
        connection->resumeGroup();
}

void OpenGroups::suspendAll(const Connection* except)
{
    for (Connection* connection : m_connections)
        if (connection != except)
            connection->suspendGroupForOthers();
}

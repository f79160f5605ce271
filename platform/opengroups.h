// The connections of this process that have a group of statements open on the archive, such as a running
// import's.
//
// While a group is open nobody else can write, and the operating system drops all locks that a process has on
// a file as soon as it closes any descriptor of it. So whoever writes, or copies the file, first lets the
// groups become durable; each goes on with a new one at its next statement.
#pragma once

#include <vector>

class Connection;

class OpenGroups {
public:
    void add(Connection& connection);
    void remove(Connection& connection);

    bool any() const { return !m_connections.empty(); } // an import is running
    // Throws what a commit throws (RunTimeError); the group then stays open.
    void suspendAll(const Connection* except = nullptr);
    // They take the file again at once, not only with their next statement. Throws nothing.
    void resumeAll();

private:
    std::vector<Connection*> m_connections;
};

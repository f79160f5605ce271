// Knows the connections of this process that have a group of statements open on the archive, such as a
// running import's.
//
// While a group is open nobody else can write, and the operating system drops all locks that a process has on
// a file as soon as it closes any descriptor of it. So whoever writes, or copies the file, first lets the
// groups become durable; each goes on with a new one at its next statement.
#pragma once

#include <vector>

// Is a group of statements that others ask to step aside, as database/connection/connection.h has it.
class OpenGroup {
public:
    virtual ~OpenGroup() = default;

    virtual void suspendGroupForOthers() = 0;
    virtual void resumeGroup() = 0;
};

class OpenGroups {
public:
    void add(OpenGroup& group);
    void remove(OpenGroup& group);

    bool any() const { return !m_groups.empty(); } // an import is running
    // Throws what a commit throws (RunTimeError); the group then stays open.
    void suspendAll(const OpenGroup* except = nullptr);
    // They take the file again at once, not only with their next statement. Throws nothing.
    void resumeAll();

private:
    std::vector<OpenGroup*> m_groups;
};

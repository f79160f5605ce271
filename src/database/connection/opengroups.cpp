#include "database/connection/opengroups.h"

void OpenGroups::add(OpenGroup& group)
{
    m_groups.push_back(&group);
}

void OpenGroups::remove(OpenGroup& group)
{
    std::erase(m_groups, &group);
}

void OpenGroups::resumeAll()
{
    for (OpenGroup* group : std::vector<OpenGroup*>(m_groups))
        group->resumeGroup();
}

void OpenGroups::suspendAll(const OpenGroup* except)
{
    for (OpenGroup* group : m_groups)
        if (group != except)
            group->suspendGroupForOthers();
}

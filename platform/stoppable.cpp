#include "platform/stoppable.h"

#include <sqlite3.h>

namespace {

constexpr int kSteps = 2000; // of the engine's machine: well below a millisecond of the usual ones

int asked(void* goesOn)
{
    return (*static_cast<std::function<bool()>*>(goesOn))() ? 0 : 1;
}

} // namespace

Stoppable::Stoppable(sqlite3* database, std::function<bool()> goesOn)
    : m_database(database), m_goesOn(std::move(goesOn))
{
    sqlite3_progress_handler(m_database, kSteps, asked, &m_goesOn);
}

Stoppable::~Stoppable()
{
    sqlite3_progress_handler(m_database, 0, nullptr, nullptr);
}

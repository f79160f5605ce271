#include "system/desktop/printerturn.h"

#include "base/runtimeerror.h"

#include <mutex>

namespace {

// A thread may have its turn within another one, while a dialog is open. It is never destroyed: one that
// waits here does so until the process has gone.
std::recursive_timed_mutex& turn()
{
    static auto* const mutex = new std::recursive_timed_mutex;
    return *mutex;
}

} // namespace

PrinterTurn::PrinterTurn()
{
    turn().lock();
}

PrinterTurn::PrinterTurn(std::chrono::milliseconds patience)
{
    if (!turn().try_lock_for(patience))
        throw RunTimeError(ErrorNumber::PrinterError);
}

PrinterTurn::~PrinterTurn()
{
    turn().unlock();
}

bool PrinterTurn::takeForGood(std::chrono::milliseconds patience)
{
    return turn().try_lock_for(patience);
}

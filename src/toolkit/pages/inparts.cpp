#include "toolkit/pages/inparts.h"

#include <exception>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace {

using Work = std::function<void(int part)>;
using Threads = std::vector<std::jthread>; // are joined when they go, whatever happens

// An error must not leave the thread.
void doPart(const Work& work, int part, std::exception_ptr& error) noexcept
{
    try {
        work(part);
    } catch (...) {
        error = std::current_exception();
    }
}

bool isBegun(Threads& threads, const Work& work, int part, std::exception_ptr& error)
{
    try {
        threads.emplace_back(doPart, std::cref(work), part, std::ref(error));
        return true;
    } catch (const std::system_error&) { // there are too many threads
        return false;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

void doInParts(int parts, const Work& work)
{
    std::vector<std::exception_ptr> errors(static_cast<std::size_t>(parts));
    const auto errorOf = [&](int part) -> std::exception_ptr& {
        return errors[static_cast<std::size_t>(part)];
    };
    {
        Threads threads;
        for (int part = 1; part < parts; ++part)
            if (!isBegun(threads, work, part, errorOf(part)))
                doPart(work, part, errorOf(part));
        doPart(work, 0, errorOf(0));
    }
    for (const std::exception_ptr& error : errors)
        if (error)
            std::rethrow_exception(error);
}

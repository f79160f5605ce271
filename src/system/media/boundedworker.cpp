#include "system/media/boundedworker.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kPatienceAtTheEnd(300);
constexpr std::chrono::milliseconds kTurn(50);

} // namespace

struct BoundedWorker::Shared {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> job; // waiting, or at work while busy
    bool busy = false;
    bool quit = false;
    bool gone = false;
};

BoundedWorker::BoundedWorker() : m_shared(std::make_shared<Shared>())
{
    std::thread(work, m_shared).detach();
}

BoundedWorker::~BoundedWorker()
{
    std::unique_lock lock(m_shared->mutex);
    m_shared->quit = true;
    m_shared->changed.notify_all();
    if (!m_stuck)
        m_shared->changed.wait_for(lock, kPatienceAtTheEnd, [this] { return m_shared->gone; });
}

bool BoundedWorker::run(std::function<void()> job, std::chrono::milliseconds limit,
                        const std::function<void()>& meanwhile)
{
    if (m_stuck)
        return false;
    std::unique_lock lock(m_shared->mutex);
    m_shared->job = std::move(job);
    m_shared->busy = true;
    m_shared->changed.notify_all();
    m_stuck = !waitForEnd(lock, std::chrono::steady_clock::now() + limit, meanwhile);
    return !m_stuck;
}

bool BoundedWorker::waitForEnd(std::unique_lock<std::mutex>& lock,
                               std::chrono::steady_clock::time_point latest,
                               const std::function<void()>& meanwhile)
{
    const auto isDone = [this] { return !m_shared->busy; };
    if (!meanwhile)
        return m_shared->changed.wait_until(lock, latest, isDone);
    while (!m_shared->changed.wait_until(lock, std::min(latest, std::chrono::steady_clock::now() + kTurn),
                                         isDone)) {
        if (std::chrono::steady_clock::now() >= latest)
            return false;
        lock.unlock();
        meanwhile();
        lock.lock();
    }
    return true;
}

void BoundedWorker::work(const std::shared_ptr<Shared>& shared)
{
    std::unique_lock lock(shared->mutex);
    for (;;) {
        shared->changed.wait(lock, [&] { return shared->busy || shared->quit; });
        if (!shared->busy)
            break;
        auto job = std::exchange(shared->job, nullptr);
        lock.unlock();
        job();
        job = nullptr; // what it owns goes here, in this thread
        lock.lock();
        shared->busy = false;
        shared->changed.notify_all();
    }
    shared->gone = true;
    shared->changed.notify_all();
}

#include "platform/boundedworker.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds kPatienceAtTheEnd(300);

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

bool BoundedWorker::run(std::function<void()> job, std::chrono::milliseconds limit)
{
    if (m_stuck)
        return false;
    std::unique_lock lock(m_shared->mutex);
    m_shared->job = std::move(job);
    m_shared->busy = true;
    m_shared->changed.notify_all();
    m_stuck = !m_shared->changed.wait_for(lock, limit, [this] { return !m_shared->busy; });
    return !m_stuck;
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

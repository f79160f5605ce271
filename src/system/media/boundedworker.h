// Is a thread that carries out jobs one after the other, for work that may hang: whoever waits for a job can
// stop waiting.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

class BoundedWorker {
public:
    BoundedWorker();
    ~BoundedWorker(); // waits a moment for a job that runs; then it is left to itself
    BoundedWorker(const BoundedWorker&) = delete;
    BoundedWorker& operator=(const BoundedWorker&) = delete;

    // Is false when the job was not done in time. It goes on, so it must own what it works with; this worker
    // takes no more jobs then. `meanwhile` is called now and then in this thread while it is waited for.
    bool run(std::function<void()> job, std::chrono::milliseconds limit,
             const std::function<void()>& meanwhile = {});
    bool isStuck() const { return m_stuck; }

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);
    bool waitForEnd(std::unique_lock<std::mutex>& lock, std::chrono::steady_clock::time_point latest,
                    const std::function<void()>& meanwhile);

    std::shared_ptr<Shared> m_shared;
    bool m_stuck = false;
};

#pragma once

#include <httplib.h>

#include <atomic>
#include <list>
#include <thread>

namespace korvel::Demo {

/// Runs every task in a thread of its own, so that tasks which hang never keep others waiting.
class ThreadPerTask : public httplib::TaskQueue
{
public:
    void enqueue(std::function<void()> task) override;
    /// Waits for all tasks.
    void shutdown() override;

private:
    struct Worker
    {
        std::thread thread;
        std::atomic<bool> finished = false;
    };

    std::list<Worker> m_workers;
};

} // namespace korvel::Demo

#include <server/http/ThreadPerTask.h>

namespace korvel::Demo {

void ThreadPerTask::enqueue(std::function<void()> task)
{
    m_workers.remove_if([](Worker& worker) {
        if (worker.finished) {
            worker.thread.join();
            return true;
        }
        return false;
    });
    Worker& worker = m_workers.emplace_back();
    worker.thread = std::thread([&worker, task = std::move(task)] {
        task();
        worker.finished = true;
    });
}

void ThreadPerTask::shutdown()
{
    for (Worker& worker : m_workers) {
        worker.thread.join();
    }
    m_workers.clear();
}

} // namespace korvel::Demo

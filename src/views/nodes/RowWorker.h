// Sorts and filters the rows of one table on a thread of its own. Only the last request counts: a newer one
// ends the work on the one before.
#pragma once

#include "views/nodes/NodeColumns.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include <QObject>

namespace brimlet {

struct RowRequest {
    std::shared_ptr<NodeColumns>
        columns; ///< the worker's alone, but for what its readers may ask, until answered
    FileFilter filter;
    NodeSort sort;
    std::shared_ptr<const NodeBits> deleted;
    double now = 0; ///< seconds since 1970
};

/// The rows that a request asks for, on the calling thread.
std::shared_ptr<const NodeRows> computeRows(const RowRequest& request);

class RowWorker {
public:
    /// Gets each request that was not overtaken, with its rows; on the thread that made the worker.
    using Answer = std::function<void(const RowRequest&, std::shared_ptr<const NodeRows>)>;

    explicit RowWorker(Answer answer);
    ~RowWorker();

    /// Main thread.
    void submit(RowRequest request);

    /// Forgets what was asked for; it is never answered. Main thread.
    void drop();

private:
    void run(const std::stop_token& stop);
    void answer(RowRequest request, std::shared_ptr<const NodeRows> rows, int number);

    Answer m_answer;
    QObject m_mainThread; ///< answers wait here and go with the worker
    std::mutex m_mutex;
    std::condition_variable_any m_arrived;
    std::optional<RowRequest> m_waiting;
    int m_lastNumber = 0; ///< of the newest request; written on the main thread only
    std::atomic<bool> m_overtaken = false;
    std::atomic<bool> m_namesInterrupted = false;
    std::jthread m_thread; // Goes first.
};

} // namespace brimlet

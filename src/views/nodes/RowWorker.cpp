#include "views/nodes/RowWorker.h"

#include <QMetaObject>

namespace brimlet {

std::shared_ptr<const NodeRows> computeRows(const RowRequest& request) {
    const std::atomic<bool> never = false;
    return std::make_shared<const NodeRows>(
        request.columns->rows(request.filter, request.sort, *request.deleted, request.now, never, never));
}

RowWorker::RowWorker(Answer answer)
    : m_answer(std::move(answer))
    , m_thread([this](const std::stop_token& stop) { run(stop); }) {}

RowWorker::~RowWorker() {
    m_thread.request_stop();
    drop();
}

void RowWorker::submit(RowRequest request) {
    {
        const std::lock_guard lock(m_mutex);
        ++m_lastNumber;
        m_overtaken = true;
        // Names that were begun serve the newer request as well, if it needs any.
        m_namesInterrupted = m_namesInterrupted || !needsNames(request.filter, request.sort);
        m_waiting = std::move(request);
    }
    m_arrived.notify_one();
}

void RowWorker::drop() {
    const std::lock_guard lock(m_mutex);
    ++m_lastNumber;
    m_overtaken = true;
    m_namesInterrupted = true;
    m_waiting.reset();
}

void RowWorker::run(const std::stop_token& stop) {
    while (true) {
        std::unique_lock lock(m_mutex);
        if (!m_arrived.wait(lock, stop, [this] { return m_waiting.has_value(); }) || stop.stop_requested())
            return;
        RowRequest request = *std::exchange(m_waiting, std::nullopt);
        const int number = m_lastNumber;
        m_overtaken = false;
        m_namesInterrupted = false;
        lock.unlock();
        NodeColumns& columns = *request.columns;
        auto rows = std::make_shared<const NodeRows>(columns.rows(
            request.filter, request.sort, *request.deleted, request.now, m_overtaken, m_namesInterrupted));
        if (!m_overtaken)
            answer(request, std::move(rows), number);
        // Ready before the first letter is typed.
        columns.prepareNames(m_namesInterrupted);
    }
}

void RowWorker::answer(RowRequest request, std::shared_ptr<const NodeRows> rows, int number) {
    QMetaObject::invokeMethod(
        &m_mainThread,
        [this, number, request = std::move(request), rows = std::move(rows)] {
            if (number == m_lastNumber)
                m_answer(request, rows);
        },
        Qt::QueuedConnection);
}

} // namespace brimlet

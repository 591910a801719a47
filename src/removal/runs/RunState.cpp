#include "removal/runs/RunState.h"

#include "removal/runs/RunMessages.h"

#include <utility>

namespace zolva {

void RunState::requestCancel()
{
    if (!m_bulk) {
        return;
    }
    m_cancelRequested = true;
    m_bulk->title = QString::fromUtf8(stoppingTitle);
    Q_EMIT bulkChanged();
}

void RunState::setBulk(std::optional<BulkProgress> bulk)
{
    m_bulk = std::move(bulk);
    Q_EMIT bulkChanged();
}

void RunState::setCurrent(const QString& path)
{
    if (m_bulk) {
        m_bulk->current = path;
        Q_EMIT bulkChanged();
    }
}

void RunState::setDone(std::int64_t done)
{
    if (m_bulk) {
        m_bulk->done = done;
        Q_EMIT bulkChanged();
    }
}

std::shared_ptr<const RunLock> RunState::lockRuns(const std::string& folder)
{
    if (std::shared_ptr<const RunLock> held = m_lock.lock()) {
        return held;
    }
    auto lock = std::make_shared<const RunLock>(folder);
    // A lock that cannot be had for another reason is no reason to refuse a run.
    if (lock->state() == RunLock::State::HeldByOther) {
        return nullptr;
    }
    m_lock = lock;
    return lock;
}

} // namespace zolva

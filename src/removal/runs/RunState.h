#pragma once

#include "diagnostics/RunLock.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zolva {

/// How far a run has come in its phase.
struct BulkProgress
{
    QString title;
    std::int64_t total = 0; ///< paths in this phase
    std::int64_t done = 0;
    QString current; ///< the path being worked on, shortened; empty before the first

    friend bool operator==(const BulkProgress&, const BulkProgress&) = default;
};

/// The one run of this process: its progress, which is the busy flag as well, and the wish to stop.
/// Runs write it and look at it between two paths. Main thread.
class RunState : public QObject
{
    Q_OBJECT

public:
    explicit RunState(QObject* parent = nullptr) : QObject(parent) {}

    /// Present exactly while a run is going.
    [[nodiscard]] const std::optional<BulkProgress>& bulk() const { return m_bulk; }
    /// Only a bulk run takes notice, and only its end clears it: asked while the Trash is being
    /// emptied, it ends the next bulk run before its first path.
    [[nodiscard]] bool cancelRequested() const { return m_cancelRequested; }

    /// The path in hand is finished, the rest is left alone. Without a run, nothing.
    void requestCancel();

    // For the runs.
    void setBulk(std::optional<BulkProgress> bulk);
    void setCurrent(const QString& path);
    void setDone(std::int64_t done);
    void clearCancel() { m_cancelRequested = false; }

    /// The lock that keeps two processes from removing at once. Those who hold it in this process
    /// share it; null while another process has it.
    [[nodiscard]] std::shared_ptr<const RunLock> lockRuns(const std::string& folder);

Q_SIGNALS:
    /// Also for each step of the progress.
    void bulkChanged();

private:
    std::optional<BulkProgress> m_bulk;
    bool m_cancelRequested = false;
    std::weak_ptr<const RunLock> m_lock;
};

} // namespace zolva

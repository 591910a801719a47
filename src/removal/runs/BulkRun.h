#pragma once

#include "removal/disk/TrashOnePath.h"
#include "removal/runs/RunMessages.h"
#include "removal/runs/RunTools.h"

#include <QCoroTask>

#include <cstdint>
#include <string>
#include <vector>

namespace zolva {

struct BulkOrder
{
    RunName name;
    std::vector<std::string> paths;
    std::int64_t bytes = 0; ///< for the log alone
};

/// One path that a run attempted.
struct RunItem
{
    std::string path;
    TrashAttempt attempt;
};

struct RunResult
{
    std::vector<RunItem> items; ///< in order; neither the excluded nor those left alone
    std::int64_t purged = 0;
    std::vector<std::string> problems;
    std::int64_t freed = 0; ///< bytes moved
    bool stopped = false;   ///< by the user, with paths left over
    std::int64_t left = 0;  ///< those paths
};

/// Removes the paths one after the other in the background, and with `keepInTrash` off then deletes
/// what landed in the Trash. A path's failure stops nothing; the exclusion list is the one at the
/// start. The caller has entered by `enterRun` and starts it at once; the lock is given back at the
/// end. Main thread.
[[nodiscard]] QCoro::Task<RunResult> runBulk(RunTools tools, BulkOrder order, HeldRunLock lock);

/// Raises the closing toasts, in the words of the setting as it stands now.
void showRunSummary(const RunTools& tools, const RunResult& result);

/// What of the result the words are made of. Pure.
[[nodiscard]] RunFigures figuresOf(const RunResult& result);

/// Whether anything was refused, failed or left as a problem. Pure.
[[nodiscard]] bool hasTrouble(const RunResult& result);

/// The paths that no exclusion covers, in order; the others are logged.
[[nodiscard]] std::vector<std::string> withoutExcluded(const std::vector<std::string>& paths,
                                                       const std::vector<std::string>& whitelist);

} // namespace zolva

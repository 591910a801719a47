#pragma once

#include "async/Clock.h"
#include "core/SortedRows.h"
#include "files/Records.h"
#include "scanners/AppInventory.h"
#include "scanners/StorageAnalysis.h"

#include <QCoroTask>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// The reads of the disk whose results `LiveData` holds, each as a task that takes plain values and
/// gives plain values. They cannot fail.
namespace zolva {

struct Analysis
{
    AnalyzeResult result;
    std::int64_t free = 0; ///< available bytes of the home's volume
    /// Of the result's entries; found where the analysis is made, which is off the main thread.
    std::vector<std::size_t> byName = placesByName(result.entries);
};

struct LiveScans
{
    std::function<QCoro::Task<std::vector<Category>>()> clean;
    std::function<QCoro::Task<std::vector<Project>>()> purge;
    /// In the order given.
    std::function<QCoro::Task<std::vector<UninstallApp>>(std::vector<UninstallApp>)> enrich;
    std::function<QCoro::Task<std::vector<ResidueRow>>(UninstallApp, std::vector<UninstallApp>)>
        residue;
    /// Of one folder, or of the well-known places where the path is empty.
    std::function<QCoro::Task<Analysis>(std::string)> analyze;
};

/// The real ones, on the thread pool. The clock, which says what "now" is, outlives them.
[[nodiscard]] LiveScans backgroundScans(const Clock& clock);

} // namespace zolva

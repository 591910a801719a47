#pragma once

#include "async/Clock.h"
#include "removal/FreeSpaceMeter.h"
#include "removal/Toasts.h"
#include "removal/TrashMeter.h"
#include "removal/runs/RemovalDisk.h"
#include "removal/runs/RunState.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

/// The settings that runs ask for at the moment they need them.
struct RunSettings
{
    std::function<bool()> keepInTrash;
    std::function<std::vector<std::string>()> whitelist;
};

/// What a run works with, handed to it by value. All that is referred to outlives `state`; a run
/// whose state is gone touches nothing more.
struct RunTools
{
    QPointer<RunState> state;
    std::shared_ptr<RemovalDisk> disk;
    Clock& clock;
    ToastList& toasts;
    TrashMeter& trash;
    FreeSpaceMeter& space;
    RunSettings settings;
    std::string journalFolder;       ///< the run lock stands there too
    std::function<void()> openTrash; ///< shows the Trash to the user
};

/// How a flow began.
enum class RunStart
{
    Started,
    NothingToDo,
    Busy,         ///< a run is going in this process
    OtherProcess, ///< another process of this user removes; a toast says so
};

using HeldRunLock = std::shared_ptr<const RunLock>;

/// The door of the flows that allow one run at a time: `Started` with the lock, or why not.
[[nodiscard]] RunStart enterRun(const RunTools& tools, HeldRunLock& lock);

/// Only the lock between processes.
[[nodiscard]] RunStart lockOutOthers(const RunTools& tools, HeldRunLock& lock);

} // namespace zolva

#pragma once

#include "removal/runs/RunTools.h"

#include <QCoroTask>

#include <string>
#include <vector>

namespace zolva {

struct EmptyReport
{
    RunStart start = RunStart::NothingToDo; ///< also where the Trash is empty or unreadable
    bool unreadable = false;
    std::int64_t emptied = 0;          ///< without what others took meanwhile
    std::vector<std::string> failures; ///< the system's words, in order
};

/// Deletes for good all that lies in the user's Trash, whoever put it there. Begins at the call,
/// like every run that goes alone. It cannot be stopped: the wish to only waits for the next bulk
/// run. Main thread.
[[nodiscard]] QCoro::Task<EmptyReport> emptyTrash(RunTools tools);

} // namespace zolva

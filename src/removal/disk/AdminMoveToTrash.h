#pragma once

#include "platform/AdminMove.h"

#include <string>

namespace zolva {

/// Moves one path to the user's own Trash with administrator rights, under a free name ("Foo
/// 2.app"). The guard is asked first: such rights widen nothing. True when the move is known to
/// have worked. It waits for the system's prompt, so never on the main thread. The item stays in
/// the Trash; it has no landed path to purge.
[[nodiscard]] bool adminMoveToTrash(const std::string& path, const ToolRunner& run = runTool);

} // namespace zolva

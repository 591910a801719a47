#pragma once

#include <functional>
#include <string>
#include <vector>

/// Moving with administrator rights. The system asks for the password itself; the program never
/// sees it. Blocks for as long as that takes; any thread.
namespace zolva {

/// Runs a program, by its absolute path, with its arguments, the first being that path, and waits:
/// its exit status, 128 and the signal's number where it died of one, -1 if it could not be
/// started.
using ToolRunner = std::function<int(const std::vector<std::string>& command)>;

/// The `ToolRunner` of the system: a process group of its own, no shell, nothing on its standard
/// streams.
[[nodiscard]] int runTool(const std::vector<std::string>& command);

/// The command that moves `source` to `destination`, both absolute, after asking for a password.
[[nodiscard]] std::vector<std::string> adminMoveCommand(const std::string& source,
                                                        const std::string& destination);

/// Moves to a free place in the user's own Trash, named `name`. True when the move is known to have
/// worked.
[[nodiscard]] bool adminMove(const std::string& home, const std::string& source,
                             const std::string& name, const ToolRunner& run);

/// The name for the try of that number, from 0: as it stands, then with a counter before the
/// extension ("Foo 2.app"); shortened where the Trash needs it shorter.
[[nodiscard]] std::string adminMoveName(const std::string& name, int attempt);

/// Whether anything in the user's own Trash, or the record of anything, has the name.
[[nodiscard]] bool isTrashNameTaken(const std::string& home, const std::string& name);

} // namespace zolva

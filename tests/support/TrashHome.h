#pragma once

#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <string>
#include <vector>

namespace zolva::test {

/// A home folder of its own with a Trash of its own. Whoever includes this runs with HOME and the
/// XDG folders at a place that does not exist, outside such homes; a test that would touch a real
/// Trash ends the program.
class TrashHome
{
public:
    TrashHome();
    /// In a folder that the caller owns and removes.
    explicit TrashHome(const std::string& folder);

    TempTree tree;

    [[nodiscard]] const std::string& home() const { return m_home; }
    [[nodiscard]] std::string path(const std::string& relative) const;
    [[nodiscard]] std::string trash() const { return m_home + "/.local/share/Trash"; }
    [[nodiscard]] std::string inTrash(const std::string& name) const;
    [[nodiscard]] std::string infoOf(const std::string& name) const;

private:
    std::string m_home;
    ScopedHome m_scope;
};

/// Whether a thing, or a link that leads nowhere, stands there.
[[nodiscard]] bool stands(const std::string& path);
/// The bytes of a file; nothing's are "(none)".
[[nodiscard]] std::string content(const std::string& path);
/// Sorted; empty for what is no folder.
[[nodiscard]] std::vector<std::string> namesIn(const std::string& path);

} // namespace zolva::test

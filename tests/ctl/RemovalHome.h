#pragma once

#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zolva::test {

/// A home of its own, with a Trash of its own, that zolvactl removes from.
struct RemovalHome
{
    TempTree tree;

    [[nodiscard]] Outcome run(std::vector<std::string> arguments) const;
    [[nodiscard]] std::string inTrash(const std::string& name) const;
    /// Whether a thing stands at the relative path.
    [[nodiscard]] bool has(const std::string& path) const;
    /// The names in the Trash, sorted.
    [[nodiscard]] std::vector<std::string> trash() const;
    /// Every path below the home, sorted: equal where nothing was touched.
    [[nodiscard]] std::vector<std::string> all() const;
};

/// One outcome of a document, of a thing that was moved; with ' for ".
[[nodiscard]] std::string movedJson(const std::string& path, std::int64_t bytes,
                                    const std::string& landed);
/// A whole outcome document for what went to the Trash and stays there.
[[nodiscard]] std::string movedDocument(const std::string& outcomes, std::int64_t bytes);

} // namespace zolva::test

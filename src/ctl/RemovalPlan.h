#pragma once

#include "ctl/Commands.h"
#include "ctl/StopSignals.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What a removal would take, and the user's word on it. Prompts go to standard error.
namespace zolva::ctl {

struct PlannedItem
{
    std::string path; ///< bytes
    std::int64_t bytes = 0;
    std::optional<std::string> refusal; ///< why it will stay where it is
};

/// Without what is excluded.
using Plan = std::vector<PlannedItem>;

/// Each path as the guard sees it.
[[nodiscard]] PlannedItem planned(std::string path, std::int64_t bytes);

/// Whether anybody will see the plan.
[[nodiscard]] bool isShown(const Request& request);

/// Bytes on disk below each path; zeros, unmeasured, where nobody will see them.
[[nodiscard]] std::vector<std::int64_t> sizesToShow(const Request& request,
                                                    const std::vector<std::string>& paths);

/// Why the removal cannot begin: there is nobody to ask, and no answer was given.
[[nodiscard]] std::optional<Answer> nobodyToAsk(const Request& request);

/// The answer of a dry run.
[[nodiscard]] Answer wouldAnswer(const Request& request, const Plan& plan);

/// "3 items (1.2 MB)" of what would go.
[[nodiscard]] std::string amountText(const Plan& plan);

/// Whether all of it will stay where it is.
[[nodiscard]] bool nothingGoes(const Plan& plan);

/// Shows the plan and asks, unless the answer was given. No answer, and one that is not "y" or
/// "yes", is a no; so is a request to end the program, whatever the answer.
[[nodiscard]] bool confirmed(const Request& request, const Plan& plan, const std::string& question,
                             const StopSignals& stop);

} // namespace zolva::ctl

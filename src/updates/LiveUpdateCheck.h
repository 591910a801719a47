#pragma once

#include "updates/UpdateController.h"

namespace zolva {

/// The check over the network. The clock outlives it.
[[nodiscard]] UpdateCheck liveUpdateCheck(Clock& clock);

} // namespace zolva

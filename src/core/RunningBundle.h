#pragma once

#include "updates/AppBundle.h"

namespace zolva {

/// The program of this process, as it was configured to be built.
[[nodiscard]] AppBundle runningBundle();

} // namespace zolva

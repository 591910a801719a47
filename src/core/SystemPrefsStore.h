#pragma once

#include "core/PrefsStore.h"

#include <memory>

namespace zolva {

/// Where this system keeps the settings of a program of this user. Looks at the environment now,
/// and writes nothing until something is written.
[[nodiscard]] std::unique_ptr<PrefsStore> systemPrefsStore();

} // namespace zolva

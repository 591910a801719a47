#pragma once

namespace zolva {

/// Whether the environment names anything that a window could be shown on. Whether it can really be
/// reached is another question.
[[nodiscard]] bool hasDisplay();

} // namespace zolva

#pragma once

namespace zolva {

/// Has the calling thread, and those that it starts from now on, give way to others of this program
/// where there are not enough processors for all. For good: further calls do nothing, nor does this
/// one where the system refuses.
void giveWay();

} // namespace zolva

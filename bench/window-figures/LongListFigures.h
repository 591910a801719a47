#pragma once

namespace zolva {

/// For each screen with a list, with ten thousand rows: how soon they are on the display once the
/// data is there, what sorting and ticking all takes, the frames of scrolling, and the memory.
int longListFigures();

} // namespace zolva

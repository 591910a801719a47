#pragma once

namespace zolva {

/// Gives the calling thread a stack of its own for signal handlers, until the thread ends, so that
/// the crash capture also works where the thread's own stack is used up. Every thread this program
/// starts calls it first; further calls do nothing. Without memory for one, nothing happens.
void useAlternateSignalStack();

} // namespace zolva

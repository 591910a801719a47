#pragma once

namespace zolva::ctl {

/// Reads the arguments, does what they ask and returns the exit code: 0 done, 1 could not, 2 wrong
/// usage, 3 stopped. Main thread.
int run(int argc, char** argv);

} // namespace zolva::ctl

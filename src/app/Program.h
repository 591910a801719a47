#pragma once

namespace zolva {

/// The whole program, from its command line to its exit status: 0, also where another process of
/// this session came forward instead; 1 without a window, told on standard error; 2 if it was
/// called wrongly. Never returns to what is left of the toolkit's threads.
[[noreturn]] void runProgram(int argc, char** argv);

} // namespace zolva

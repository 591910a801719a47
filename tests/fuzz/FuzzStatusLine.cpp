#include "fuzz/FuzzInput.h"

#include "core/LineSplitter.h"
#include "core/StatusDecoder.h"

// The room of the model cannot be built by this compiler with sanitizers, on account of its
// coroutines. What is fuzzed here needs none of that, and is compiled into this program.
#include "core/LineSplitter.cpp"  // NOLINT(bugprone-suspicious-include)
#include "core/StatusDecoder.cpp" // NOLINT(bugprone-suspicious-include)

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace zolva;
using fuzz::must;

std::vector<std::string> lines(std::string_view input, std::size_t piece)
{
    std::vector<std::string> all;
    const LineSplitter::Told told = [&all](const LineSplitter::Line& line) {
        must(line.text.find('\n') == std::string_view::npos, "a line holds no line feed");
        all.emplace_back(line.text);
    };
    LineSplitter splitter;
    for (; input.size() > piece; input.remove_prefix(piece)) {
        splitter.feed(input.substr(0, piece), told);
    }
    splitter.feed(input, told);
    splitter.finish(told);
    return all;
}

} // namespace

/// However the bytes arrive they are the same lines, and each line is a reading or has a reason.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = fuzz::textOf(data, size);
    const std::vector<std::string> whole = lines(input, input.size() + 1);
    must(whole == lines(input, 7), "the pieces make no difference");
    for (const std::string& line : whole) {
        const auto status = decodeStatus(line);
        must(status || !status.error().empty(), "what fails has a reason");
        must(!status || line.find('\0') == std::string::npos, "no reading holds a NUL");
        must(!status || line.front() != '[', "a reading is an object");
    }
    return 0;
}

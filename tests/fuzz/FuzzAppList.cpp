#include "fuzz/FuzzInput.h"

#include "files/DisplayPath.h"
#include "scanners/AppInventory.h"

#include <nlohmann/json.hpp>

/// Any bytes as a list of applications: an answer and no exception.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using zolva::fuzz::must;
    const std::string_view bytes = zolva::fuzz::textOf(data, size);
    const auto apps = zolva::decodeAppList(bytes);
    const bool isJson = bytes.find('\0') == std::string_view::npos &&
                        nlohmann::json::accept(bytes.begin(), bytes.end());
    must(!apps || isJson, "only JSON is accepted");
    if (!apps) {
        const std::string& error = apps.error();
        must(!error.empty() && error.size() < 200, "an error is a short text");
        must(zolva::displayText(error) == error, "an error is UTF-8");
        must(!isJson || !error.starts_with("not JSON"), "what is JSON is not told to be none");
    }
    return 0;
}

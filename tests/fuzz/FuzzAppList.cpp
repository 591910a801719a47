#include "files/DisplayPath.h"
#include "scanners/AppInventory.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Whatever the bytes: an answer and no exception; only true JSON is accepted, and an error is a
/// short text in UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto apps = zolva::decodeAppList(bytes);
    const bool isJson = bytes.find('\0') == std::string_view::npos &&
                        nlohmann::json::accept(bytes.begin(), bytes.end());
    if (apps) {
        if (!isJson) {
            std::abort();
        }
        return 0;
    }
    const std::string& error = apps.error();
    if (error.empty() || error.size() > 200 || zolva::displayText(error) != error ||
        (isJson && error.starts_with("not JSON"))) {
        std::abort();
    }
    return 0;
}

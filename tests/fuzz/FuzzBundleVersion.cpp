#include "scanners/AppInventory.h"

#include <cstddef>
#include <cstdint>

/// Whatever the bytes: a text or nothing, in little time, stack and memory (the fuzzer's own
/// limits tell).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion", "K"}) {
        [[maybe_unused]] const auto text = zolva::plistText(bytes, key);
    }
    return 0;
}

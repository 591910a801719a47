#include "fuzz/FuzzInput.h"

#include "scanners/AppInventory.h"

/// Any bytes as a property list: a text or nothing, in little time, stack and memory (the fuzzer's
/// own limits tell).
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using zolva::fuzz::must;
    const std::string_view bytes = zolva::fuzz::textOf(data, size);
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion", "K"}) {
        const auto text = zolva::plistText(bytes, key);
        must(!text || text->size() <= 3 * size, "a text is not longer than what it is made of");
    }
    return 0;
}

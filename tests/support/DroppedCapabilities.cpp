#include "support/DroppedCapabilities.h"

#include "support/InChild.h"

#include <gtest/gtest.h>

#include <sys/capability.h>
#include <unistd.h>

#include <array>

namespace zolva::test {

namespace {

constexpr std::array<cap_value_t, 3> overriding = {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH,
                                                   CAP_FOWNER};

bool dropOverriding()
{
    for (const cap_value_t one : overriding) {
        if (cap_get_bound(one) == 1 && cap_get_proc() != nullptr && ::geteuid() == 0 &&
            cap_drop_bound(one) != 0) {
            return false;
        }
    }
    cap_t caps = cap_get_proc();
    if (caps == nullptr) {
        return false;
    }
    const int count = static_cast<int>(overriding.size());
    const bool done =
        cap_set_flag(caps, CAP_EFFECTIVE, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_flag(caps, CAP_PERMITTED, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_flag(caps, CAP_INHERITABLE, count, overriding.data(), CAP_CLEAR) == 0 &&
        cap_set_proc(caps) == 0;
    cap_free(caps);
    return done;
}

} // namespace

void withoutOverridingPermissions(const std::function<void()>& body)
{
    inChild([&body] {
        ASSERT_TRUE(dropOverriding()) << "the capabilities could not be dropped";
        body();
    });
}

} // namespace zolva::test

#include "files/Uuid.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <set>

namespace zolva {

namespace {

TEST(Uuid, IsOfVersionFour)
{
    for (int i = 0; i < 64; ++i) {
        const Uuid id = freshUuid();
        EXPECT_EQ(id.bytes[6] & 0xF0, 0x40);
        EXPECT_EQ(id.bytes[8] & 0xC0, 0x80);
    }
}

TEST(Uuid, DoesNotRepeat)
{
    std::set<std::array<std::uint8_t, 16>> seen;
    constexpr std::size_t count = 20'000;
    for (std::size_t i = 0; i < count; ++i) {
        seen.insert(freshUuid().bytes);
    }
    EXPECT_EQ(seen.size(), count);
}

TEST(Uuid, EveryOtherBitTakesBothValues)
{
    std::array<std::uint8_t, 16> ones{};
    std::array<std::uint8_t, 16> zeros{};
    for (int i = 0; i < 256; ++i) {
        const Uuid id = freshUuid();
        for (std::size_t byte = 0; byte < id.bytes.size(); ++byte) {
            ones[byte] = static_cast<std::uint8_t>(ones[byte] | id.bytes[byte]);
            zeros[byte] = static_cast<std::uint8_t>(zeros[byte] | ~id.bytes[byte]);
        }
    }
    for (std::size_t byte = 0; byte < ones.size(); ++byte) {
        const int fixed = byte == 6 ? 0xF0 : byte == 8 ? 0xC0 : 0;
        EXPECT_EQ(ones[byte] & zeros[byte], 0xFF & ~fixed) << byte;
    }
}

TEST(Uuid, IsNotRepeatedByAForkedChild)
{
    static_cast<void>(freshUuid());
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const Uuid own = freshUuid();
        const bool told = ::write(ends[1], own.bytes.data(), own.bytes.size()) == 16;
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    const Uuid own = freshUuid();
    Uuid childs;
    EXPECT_EQ(::read(ends[0], childs.bytes.data(), childs.bytes.size()), 16);
    ::close(ends[0]);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_FALSE(own == childs);
}

} // namespace

} // namespace zolva

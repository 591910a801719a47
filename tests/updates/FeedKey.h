#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zolva::test {

/// A key pair of its own for each number, and what is signed with it.
class FeedKey
{
public:
    explicit FeedKey(unsigned char number = 1);

    /// Both as base64.
    [[nodiscard]] std::string publicKey() const;
    [[nodiscard]] std::string sign(std::string_view data) const;

private:
    std::array<unsigned char, 32> m_open{};
    std::array<unsigned char, 64> m_secret{};
};

[[nodiscard]] std::string base64(std::string_view bytes);
[[nodiscard]] std::string fromBase64(std::string_view text);

/// A manifest of that build, at an address that is safe.
[[nodiscard]] std::string manifestOf(int build);

} // namespace zolva::test

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What may be sent to a terminal, and how wide it stands there.
namespace zolva::ctl {

/// What a piece of text means, which decides how it is painted.
enum class Ink
{
    Plain,
    Strong,
    Faint,
    Bar,
    Good,
    Bad
};

/// How one output may be painted.
struct Look
{
    bool colours = false;
};

/// Colours only on a terminal that has them, and never where `NO_COLOR` is set and not empty.
[[nodiscard]] Look lookOf(int descriptor);

/// Whether lines on it can be drawn again in place.
[[nodiscard]] bool canRedraw(int descriptor);

[[nodiscard]] std::string painted(std::string_view text, Ink ink, const Look& look);

/// Columns that UTF-8 text takes: wide characters two, combining ones none.
[[nodiscard]] std::size_t columnsOf(std::string_view text);

/// Writes all of it; 0 or the error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

/// The same, given up without an error as soon as `stop` is readable and nobody takes the text.
[[nodiscard]] int writeUnlessStopped(int descriptor, std::string_view text, int stop);

} // namespace zolva::ctl

#pragma once

#include <chrono>
#include <string_view>

namespace zolva::mole {

enum class Delivery
{
    Done,
    Closed, ///< nobody reads any more
    Failed, ///< errno tells why
};

/// Writes all of it to standard output, waiting for a slow reader. Needs SIGPIPE ignored.
[[nodiscard]] Delivery deliver(std::string_view text);

/// Prints one status document a line: the first soon after the start, the next ones an interval
/// after another without drift; a document that is late because the reader is slow leaves out those
/// that it covers. Returns `Closed` as soon as nobody reads any more, even between two documents.
[[nodiscard]] Delivery watchStatus(std::chrono::seconds interval);

} // namespace zolva::mole

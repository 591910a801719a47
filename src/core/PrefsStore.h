#pragma once

#include "core/TextsChange.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zolva {

/// A change of a list is made to the list that is stored by then; one that is none counts as empty.
using PrefValue =
    std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>, TextsChange>;

/// Why the values may not be those that the user chose; where both are empty, they are.
struct PrefsTrouble
{
    std::string unread;  ///< why nothing of what is stored could be read until now
    std::string damaged; ///< where the file lies that could not be understood
};

/// Values by key that outlive the process. A value of another type than asked for reads as that
/// type's zero; no error is ever reported to the caller. Texts are bytes. Main thread.
class PrefsStore
{
public:
    virtual ~PrefsStore() = default;
    PrefsStore() = default;
    PrefsStore(const PrefsStore&) = delete;
    PrefsStore& operator=(const PrefsStore&) = delete;

    /// Whether there is a value, of whatever type; 0 and false are values.
    [[nodiscard]] virtual bool has(const std::string& key) = 0;
    [[nodiscard]] virtual bool boolean(const std::string& key) = 0;
    [[nodiscard]] virtual std::int64_t wholeNumber(const std::string& key) = 0;
    /// Whole numbers count.
    [[nodiscard]] virtual double number(const std::string& key) = 0;
    [[nodiscard]] virtual std::optional<std::string> text(const std::string& key) = 0;
    /// Nothing as soon as one element is no text.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> texts(const std::string& key) = 0;

    /// Looks anew.
    [[nodiscard]] virtual PrefsTrouble trouble() { return {}; }

    /// All of them at once, in place of older values; other keys stay as they are. What the disk
    /// does not take is still read back from here, over what others store meanwhile, and offered
    /// again at the next write.
    virtual void write(const std::vector<std::pair<std::string, PrefValue>>& values) = 0;
};

} // namespace zolva

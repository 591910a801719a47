#pragma once

#include <string>
#include <utility>
#include <variant>

namespace zolva {

enum class LoadState
{
    Idle,
    Loading,
    Loaded,
    Failed
};

/// The value of a `Loadable` that has none to hold.
struct Nothing
{
    friend bool operator==(const Nothing&, const Nothing&) = default;
};

/// Where an asynchronous read stands: nothing asked for, under way, a result held, or ended in an
/// error already worded for the user. Begins idle. A plain value.
template <typename T>
class Loadable
{
public:
    Loadable() = default;
    [[nodiscard]] static Loadable idle() { return {}; }
    [[nodiscard]] static Loadable loading() { return Loadable(Loading{}); }
    [[nodiscard]] static Loadable loaded(T value) { return Loadable(Loaded{std::move(value)}); }
    [[nodiscard]] static Loadable failed(std::string text)
    {
        return Loadable(Failed{std::move(text)});
    }

    [[nodiscard]] LoadState state() const { return static_cast<LoadState>(m_case.index()); }
    [[nodiscard]] bool isIdle() const { return state() == LoadState::Idle; }
    [[nodiscard]] bool isLoading() const { return state() == LoadState::Loading; }
    [[nodiscard]] bool isLoaded() const { return state() == LoadState::Loaded; }
    [[nodiscard]] bool isFailed() const { return state() == LoadState::Failed; }

    /// The result, while one is held; null otherwise.
    [[nodiscard]] const T* value() const
    {
        const auto* held = std::get_if<Loaded>(&m_case);
        return held ? &held->value : nullptr;
    }

    /// The text of the error, if it ended in one; null otherwise.
    [[nodiscard]] const std::string* error() const
    {
        const auto* held = std::get_if<Failed>(&m_case);
        return held ? &held->text : nullptr;
    }

private:
    struct Idle
    {};
    struct Loading
    {};
    struct Loaded
    {
        T value;
    };
    struct Failed
    {
        std::string text;
    };

    template <typename Case>
    explicit Loadable(Case held) : m_case(std::move(held))
    {}

    std::variant<Idle, Loading, Loaded, Failed> m_case; ///< in the order of `LoadState`
};

} // namespace zolva

#pragma once

#include <QCoroTask>

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace zolva {

namespace detail {

/// One piece of work for a thread of the pool, to be awaited once: `co_await work.done()`. Who
/// awaits is resumed by the event loop of the thread that did. The work must not throw.
class PoolWork
{
public:
    class State;
    /// Awaiters are copied on their way, so this one only refers to the work.
    struct Done
    {
        State* state;

        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> caller) const;
        void await_resume() const noexcept {}
    };

    explicit PoolWork(std::function<void()> work);
    ~PoolWork();
    PoolWork(const PoolWork&) = delete;
    PoolWork& operator=(const PoolWork&) = delete;

    [[nodiscard]] Done done() const { return {m_state.get()}; }

private:
    std::unique_ptr<State> m_state;
};

} // namespace detail

/// The one way off the main thread: `co_await background(fn, args…)` calls `fn(args…)` on a thread
/// of the pool and goes on where it was called, with the result, or never if the event loop ends
/// before. Function, arguments and result are plain values, moved there and back; nothing the main
/// thread still touches may hide in them. There is no cancelling: look at the guard (generation or
/// key) afterwards. An exception from `fn` ends the process through the last-chance hook.
template <typename Fn, typename... Args>
[[nodiscard]] QCoro::Task<std::invoke_result_t<Fn, Args...>> background(Fn fn, Args... args)
{
    using Result = std::invoke_result_t<Fn, Args...>;
    // The coroutine's frame stays in place until the work has ended, so the work may refer to it.
    if constexpr (std::is_void_v<Result>) {
        detail::PoolWork work([&] { std::invoke(std::move(fn), std::move(args)...); });
        co_await work.done();
    } else {
        std::optional<Result> result;
        detail::PoolWork work(
            [&] { result.emplace(std::invoke(std::move(fn), std::move(args)...)); });
        co_await work.done();
        co_return std::move(*result);
    }
}

} // namespace zolva

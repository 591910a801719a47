#pragma once

#include <QCoroTask>

#include <chrono>
#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace zolva {

namespace detail {

enum class Pool
{
    Reads,
    Removals
};

/// One piece of work for a thread of a pool, to be awaited once: `co_await work.done()`. Who awaits
/// is resumed by the event loop of the thread that did, which is the main one. The work must not
/// throw.
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

    PoolWork(Pool pool, std::function<void()> work);
    ~PoolWork();
    PoolWork(const PoolWork&) = delete;
    PoolWork& operator=(const PoolWork&) = delete;

    [[nodiscard]] Done done() const { return {m_state.get()}; }

private:
    std::unique_ptr<State> m_state;
};

template <typename Fn, typename... Args>
[[nodiscard]] QCoro::Task<std::invoke_result_t<Fn, Args...>> inPool(Pool pool, Fn fn, Args... args)
{
    using Result = std::invoke_result_t<Fn, Args...>;
    // The coroutine's frame stays in place until the work has ended, so the work may refer to it.
    if constexpr (std::is_void_v<Result>) {
        PoolWork work(pool, [&] { std::invoke(std::move(fn), std::move(args)...); });
        co_await work.done();
    } else {
        std::optional<Result> result;
        PoolWork work(pool,
                      [&] { result.emplace(std::invoke(std::move(fn), std::move(args)...)); });
        co_await work.done();
        co_return std::move(*result);
    }
}

} // namespace detail

/// The one way off the main thread: `co_await background(fn, args…)` calls `fn(args…)` on a thread
/// of the pool and goes on where it was called, with the result, or never if the event loop ends
/// before. Function, arguments and result are plain values, moved there and back; nothing the main
/// thread still touches may hide in them. There is no cancelling: look at the guard (generation or
/// key) afterwards. An exception from `fn` ends the process through the last-chance hook.
template <typename Fn, typename... Args>
[[nodiscard]] QCoro::Task<std::invoke_result_t<Fn, Args...>> background(Fn fn, Args... args)
{
    return detail::inPool(detail::Pool::Reads, std::move(fn), std::move(args)...);
}

/// The same for a step of a removal, which waits for no scan: it has threads of its own.
template <typename Fn, typename... Args>
[[nodiscard]] QCoro::Task<std::invoke_result_t<Fn, Args...>> backgroundStep(Fn fn, Args... args)
{
    return detail::inPool(detail::Pool::Removals, std::move(fn), std::move(args)...);
}

/// For the end of the program, after the event loop: waits until the steps of removals that are
/// under way have ended, but no longer than that. Those that wait for their turn never begin. Main
/// thread.
void letStepsEnd(std::chrono::milliseconds longest);

} // namespace zolva

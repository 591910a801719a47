#pragma once

#include <QCoroTask>

#include <coroutine>
#include <deque>
#include <memory>
#include <optional>
#include <utility>

namespace zolva {

/// An unbounded buffer between one writer and one reader on the same thread. Copies are the same
/// mailbox. A write wakes the waiting reader before it returns, so the writer must reckon with
/// everything the reader does, its own end included.
template <typename T>
class Mailbox
{
public:
    void send(T value) const
    {
        if (!m_state->closed) {
            m_state->values.push_back(std::move(value));
            wake(*m_state);
        }
    }

    /// Nothing more comes; what is there can still be read.
    void close() const
    {
        m_state->closed = true;
        wake(*m_state);
    }

    /// Forgets what has not been read.
    void clear() const { m_state->values.clear(); }

    /// The next value, or nothing after the end. Needs no mailbox to stay: if all copies of it go
    /// away without a `close`, it never ends.
    [[nodiscard]] QCoro::Task<std::optional<T>> next() const { return take(m_state); }

private:
    struct State
    {
        std::deque<T> values;
        bool closed = false;
        std::coroutine_handle<> reader;
    };

    struct Arrival
    {
        State* state;

        [[nodiscard]] bool await_ready() const noexcept
        {
            return state->closed || !state->values.empty();
        }
        void await_suspend(std::coroutine_handle<> reader) const noexcept
        {
            state->reader = reader;
        }
        void await_resume() const noexcept {}
    };

    static QCoro::Task<std::optional<T>> take(std::shared_ptr<State> state)
    {
        Arrival arrival{state.get()};
        co_await arrival;
        std::optional<T> value;
        if (!state->values.empty()) {
            value.emplace(std::move(state->values.front()));
            state->values.pop_front();
        }
        co_return value;
    }

    /// The reader may end the mailbox: nothing of it is touched afterwards.
    static void wake(State& state)
    {
        if (const auto reader = std::exchange(state.reader, {})) {
            reader.resume();
        }
    }

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace zolva

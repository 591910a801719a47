#pragma once

#include <QCoroTask>

#include <chrono>
#include <functional>
#include <utility>

namespace zolva::test {

/// How long a condition may take at most; reached only by a test that fails.
inline constexpr std::chrono::milliseconds pumpLimit{10'000};

/// Runs the event loop until the condition holds; throws std::runtime_error if it does not within
/// the limit.
void pumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = pumpLimit);

/// Delivers what is queued already, and what that queues, without waiting for anything.
void pumpOnce();

/// Runs the event loop until the task has ended, and gives its result.
template <typename T>
T settled(QCoro::Task<T> task, std::chrono::milliseconds limit = pumpLimit)
{
    pumpUntil([&task] { return task.isReady(); }, limit);
    return QCoro::waitFor(std::move(task));
}

} // namespace zolva::test

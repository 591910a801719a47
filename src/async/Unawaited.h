#pragma once

#include <QCoroTask>

#include <utility>

namespace zolva {

/// The one way to start a task that nobody waits for: it runs on to its end by itself. An exception
/// from it ends the process through the last-chance hook; it is never swallowed.
void unawaited(QCoro::Task<> task);

/// The same for one whose result nobody wants.
template <typename T>
void unawaited(QCoro::Task<T> task)
{
    unawaited([](QCoro::Task<T> dropped) -> QCoro::Task<> {
        static_cast<void>(co_await dropped);
    }(std::move(task)));
}

} // namespace zolva

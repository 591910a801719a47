#include "async/Unawaited.h"

#include <exception>
#include <utility>

namespace zolva {

namespace {

QCoro::Task<> watched(QCoro::Task<> task)
{
    // A coroutine keeps what it throws for the one that awaits it, and here nobody does.
    try {
        co_await task;
    } catch (...) {
        std::terminate();
    }
}

} // namespace

void unawaited(QCoro::Task<> task)
{
    watched(std::move(task));
}

} // namespace zolva

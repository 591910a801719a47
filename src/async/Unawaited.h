#pragma once

#include <QCoroTask>

namespace zolva {

/// The one way to start a task that nobody waits for: it runs on to its end by itself. An exception
/// from it ends the process through the last-chance hook; it is never swallowed.
void unawaited(QCoro::Task<> task);

} // namespace zolva

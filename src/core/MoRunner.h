#pragma once

#include "core/MoError.h"
#include "core/StatusStream.h"
#include "scanners/AppInventory.h"

#include <QCoroTask>
#include <tl/expected.hpp>

#include <chrono>
#include <memory>
#include <vector>

namespace zolva {

using AppList = tl::expected<std::vector<UninstallApp>, MoFailure>;

/// The two ways in which the outside tool is ever run. Main thread.
class MoRunner
{
public:
    virtual ~MoRunner() = default;
    MoRunner() = default;
    MoRunner(const MoRunner&) = delete;
    MoRunner& operator=(const MoRunner&) = delete;

    /// Readings of the machine, one each interval (at least a second), until the reader lets go of
    /// the stream or the tool ends. Never null; what goes wrong is told by the stream.
    [[nodiscard]] virtual std::shared_ptr<StatusStream>
    statusStream(std::chrono::seconds interval) = 0;

    /// The installed applications, in the order the tool lists them.
    [[nodiscard]] virtual QCoro::Task<AppList> listApps() = 0;
};

} // namespace zolva

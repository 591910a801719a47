#pragma once

#include "updates/UpdateManifest.h"

#include <string>
#include <variant>

namespace zolva {

/// This build has no usable feed or key.
struct UpdateNotConfigured
{
    friend bool operator==(const UpdateNotConfigured&, const UpdateNotConfigured&) = default;
};

/// The running build is the newest, or no check has ended yet.
struct UpToDate
{
    friend bool operator==(const UpToDate&, const UpToDate&) = default;
};

/// A verified, strictly newer build is offered.
struct UpdateAvailable
{
    UpdateManifest manifest;

    friend bool operator==(const UpdateAvailable&, const UpdateAvailable&) = default;
};

struct UpdateCheckFailed
{
    std::string text; ///< for the user

    friend bool operator==(const UpdateCheckFailed&, const UpdateCheckFailed&) = default;
};

using UpdateCheckResult =
    std::variant<UpdateNotConfigured, UpToDate, UpdateAvailable, UpdateCheckFailed>;

} // namespace zolva

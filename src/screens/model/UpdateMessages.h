#pragma once

#include "updates/UpdateCheckResult.h"

#include <QString>

/// What is said of updates. Pure.
namespace zolva {

struct UpdateState
{
    bool switchedOff = false; ///< the build leaves them to others
    bool configured = false;
    bool checking = false;
    UpdateCheckResult result;
};

struct UpdateWords
{
    QString message;
    QString action; ///< the button's title; empty where there is no button
    bool isOffer = false;
    bool canAct = false;
};

[[nodiscard]] UpdateWords updateWords(const UpdateState& state);

} // namespace zolva

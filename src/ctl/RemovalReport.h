#pragma once

#include "ctl/Commands.h"
#include "ctl/RemovalSession.h"
#include "removal/runs/ListRuns.h"

#include <string>

/// How a removal ended, for people and for scripts.
namespace zolva::ctl {

/// A run of moves.
[[nodiscard]] Answer outcomeAnswer(const Request& request, RemovalSession& session,
                                   const RunReport& report);

/// Another process of this user removes; `output` is the document.
[[nodiscard]] Answer otherProcess(const std::string& output, const Request& request);

/// The run that was never begun, since the user's word was no.
[[nodiscard]] Answer declined(const Json& document, const Request& request);

/// The document of a run of moves.
[[nodiscard]] Json outcomeJson(const RunResult& result, const Json& toasts);

} // namespace zolva::ctl

#pragma once

#include "updates/FeedReader.h"
#include "updates/UpdateCheckResult.h"

#include <QCoroTask>
#include <QUrl>

#include <cstdint>
#include <memory>
#include <string>

namespace zolva {

/// Where the signature of a manifest lies: the same address with the extension "sig" after its
/// path.
[[nodiscard]] QUrl signatureURL(const QUrl& manifestURL);

/// One check: reads the manifest, then its signature, verifies, and compares the builds. Whatever
/// goes wrong is a result. Main thread.
[[nodiscard]] QCoro::Task<UpdateCheckResult> fetchAndVerify(std::unique_ptr<FeedReader> reader,
                                                            QUrl manifestURL, std::string publicKey,
                                                            std::int64_t currentBuild);

} // namespace zolva

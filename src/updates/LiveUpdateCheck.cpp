#include "updates/LiveUpdateCheck.h"

#include "updates/FetchAndVerify.h"

#include <memory>
#include <utility>

namespace zolva {

UpdateCheck liveUpdateCheck(Clock& clock)
{
    return [&clock](QUrl manifestURL, std::string publicKey, std::int64_t currentBuild,
                    std::stop_token stop) {
        // A reader for each check: what the network needs goes with it.
        return fetchAndVerify(std::make_unique<FeedReader>(clock, std::move(stop)),
                              std::move(manifestURL), std::move(publicKey), currentBuild);
    };
}

} // namespace zolva

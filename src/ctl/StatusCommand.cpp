#include "async/Clock.h"
#include "core/AppModel.h"
#include "core/SystemPrefsStore.h"
#include "ctl/Commands.h"
#include "ctl/Session.h"
#include "ctl/StatusText.h"
#include "ctl/StopSignals.h"
#include "ctl/Terminal.h"
#include "files/DisplayPath.h"

#include <QObject>
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace zolva::ctl {

namespace {

/// Prints each reading as it comes, until there is no reason to go on.
class Watch
{
public:
    Watch(const Request& request, Session& session, const StopSignals& stop, LiveData& live)
        : m_request(request), m_session(session), m_stop(stop), m_live(live),
          m_inPlace(!request.json && request.watch && canRedraw(STDOUT_FILENO))
    {
        QObject::connect(&live, &LiveData::statusChanged, &m_here, [this] { take(); });
        QObject::connect(&live, &LiveData::statusEnded, &m_here, [this] { handleEnd(); });
        QObject::connect(&stop, &StopSignals::asked, &m_here, [this] { finish({}); });
    }

    Answer run()
    {
        m_live.retainStatus();
        m_session.run();
        m_live.releaseStatus();
        return m_answer;
    }

private:
    void take()
    {
        if (m_over) {
            return;
        }
        const int error =
            writeUnlessStopped(STDOUT_FILENO, text(*m_live.status()), m_stop.descriptor());
        m_first = false;
        if (error != 0) {
            finish(unwritten(error));
        } else if (!m_request.watch) {
            finish({});
        }
    }

    [[nodiscard]] std::string text(const StatusResult& status) const
    {
        if (m_request.json) {
            return status.document + "\n";
        }
        const std::string lines = statusText(statusTiles(status, volumeCapacity()), m_request.look);
        if (m_inPlace) {
            return drawnInPlace(lines, m_first);
        }
        return m_first ? lines : "\n" + lines;
    }

    void handleEnd()
    {
        const auto& error = m_live.statusError();
        finish(error ? Answer{{}, displayLine(*error), Exit::Failed} : Answer{});
    }

    /// What comes first counts.
    void finish(Answer answer)
    {
        if (!m_over) {
            m_over = true;
            m_answer = std::move(answer);
            m_session.end();
        }
    }

    const Request& m_request;
    Session& m_session;
    const StopSignals& m_stop;
    LiveData& m_live;
    const bool m_inPlace;
    bool m_first = true;
    bool m_over = false;
    Answer m_answer;
    QObject m_here; ///< as long as it lives, it is told
};

/// Nothing where that is no whole number.
std::optional<std::chrono::seconds> intervalFrom(const std::string& typed)
{
    std::int64_t seconds = 0;
    const char* end = typed.data() + typed.size();
    const auto read = std::from_chars(typed.data(), end, seconds);
    if (read.ec != std::errc() || read.ptr != end) {
        return std::nullopt;
    }
    return std::chrono::seconds(clampedPoll(seconds));
}

} // namespace

Answer status(const Request& request)
{
    std::optional<std::chrono::seconds> interval;
    if (request.interval) {
        interval = intervalFrom(*request.interval);
        if (!interval) {
            return {{},
                    "status: --interval takes a whole number of seconds, not \"" +
                        displayLine(*request.interval) + "\"",
                    Exit::WrongUsage};
        }
    }
    Session session;
    const StopSignals stop;
    SystemClock clock;
    const std::unique_ptr<PrefsStore> store = systemPrefsStore();
    AppDependencies dependencies = liveDependencies(clock, *store);
    dependencies.steps = {
        .meters = false, .prefsCheck = false, .journalCheck = false, .accessProbe = false};
    AppModel model(std::move(dependencies));
    if (interval) {
        model.live().setPollInterval(*interval);
    }
    return Watch(request, session, stop, model.live()).run();
}

} // namespace zolva::ctl

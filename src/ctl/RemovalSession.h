#pragma once

#include "async/Clock.h"
#include "core/AppModel.h"
#include "core/PrefsStore.h"
#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Session.h"
#include "ctl/StopSignals.h"

#include <QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

/// The model without its window, for one removal. Ctrl-C is the wish to stop: the item in hand is
/// finished first. Progress is shown on standard error, where that is a terminal. Main thread.
class RemovalSession
{
public:
    /// What the list covers was not shown as going, so it stays, also where the stored one is
    /// shorter by the time of the run.
    explicit RemovalSession(const Request& request, std::vector<std::string> excluded = {});
    ~RemovalSession();
    RemovalSession(const RemovalSession&) = delete;
    RemovalSession& operator=(const RemovalSession&) = delete;

    /// Built when it is first asked for, so that nothing comes of a removal that nobody wants.
    [[nodiscard]] AppModel& model();
    [[nodiscard]] const StopSignals& stop() const { return m_stop; }
    /// The last look before the run: builds the model, and answers whether nobody asked the program
    /// to end since the user's word, which the run would only hear of behind its first item.
    [[nodiscard]] bool begin();
    /// The last look of a run that leaves alone what is excluded: why it is not known what that is.
    [[nodiscard]] std::optional<std::string> exclusionsUnknown();
    /// Of the model, but that what was shown and asked about holds to the end.
    [[nodiscard]] RunTools tools();
    /// Whether what is moved is then deleted: by the setting, or by "--permanent".
    [[nodiscard]] bool isPermanent() const { return m_permanent; }

    /// Until the run has ended.
    template <typename T>
    [[nodiscard]] T finish(QCoro::Task<T> run)
    {
        T report = QCoro::waitFor(std::move(run));
        endProgress();
        return report;
    }

    /// Those raised so far, in order: as rows of a document, and as lines for people.
    [[nodiscard]] Json toastsJson();
    [[nodiscard]] std::string toastsText();

private:
    void showProgress();
    void endProgress();

    Session m_session;
    StopSignals m_stop;
    SystemClock m_clock;
    const bool m_permanent;
    const std::vector<std::string> m_excluded;
    const bool m_seen;
    bool m_shown = false;
    std::unique_ptr<PrefsStore> m_store;
    std::unique_ptr<AppModel> m_model;
};

} // namespace zolva::ctl

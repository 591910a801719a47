#include "ctl/RemovalSession.h"

#include "core/PrefsMessages.h"
#include "core/SystemPrefsStore.h"
#include "ctl/StoredPrefs.h"
#include "ctl/Table.h"
#include "ctl/Terminal.h"
#include "files/DisplayPath.h"

#include <unistd.h>

namespace zolva::ctl {

namespace {

constexpr const char* kindText(BannerKind kind)
{
    switch (kind) {
    case BannerKind::Info:
        return "info";
    case BannerKind::Warning:
        return "warning";
    case BannerKind::Success:
        break;
    }
    return "success";
}

std::unique_ptr<AppModel> windowlessModel(Clock& clock, PrefsStore& store)
{
    AppDependencies dependencies = liveDependencies(clock, store);
    dependencies.steps = {
        .meters = false, .prefsCheck = false, .journalCheck = false, .accessProbe = false};
    return std::make_unique<AppModel>(std::move(dependencies));
}

} // namespace

RemovalSession::RemovalSession(const Request& request, std::vector<std::string> excluded)
    : m_permanent(request.permanent || !StoredPrefs().prefs().load().keepInTrash),
      m_excluded(std::move(excluded)), m_seen(canRedraw(STDERR_FILENO)), m_store(systemPrefsStore())
{}

RemovalSession::~RemovalSession()
{
    endProgress();
}

AppModel& RemovalSession::model()
{
    if (!m_model) {
        m_model = windowlessModel(m_clock, *m_store);
        RunState& runs = m_model->removal().runs();
        QObject::connect(&m_stop, &StopSignals::asked, &runs, &RunState::requestCancel);
        if (m_seen) {
            QObject::connect(&runs, &RunState::bulkChanged, m_model.get(),
                             [this] { showProgress(); });
        }
    }
    return *m_model;
}

bool RemovalSession::begin()
{
    static_cast<void>(model());
    return !m_stop.wasAsked();
}

std::optional<std::string> RemovalSession::exclusionsUnknown()
{
    if (model().removal().knowsExclusions()) {
        return std::nullopt;
    }
    return displayLine(prefsUnreadText(model().settings().unread()));
}

RunTools RemovalSession::tools()
{
    RunTools tools = model().removal().tools();
    tools.settings.keepInTrash = [keep = !m_permanent] { return keep; };
    tools.settings.whitelist = [stored = tools.settings.whitelist, shown = m_excluded] {
        std::vector<std::string> all = stored();
        all.insert(all.end(), shown.begin(), shown.end());
        return all;
    };
    return tools;
}

Json RemovalSession::toastsJson()
{
    Json rows = Json::array();
    for (const Toast& toast : model().toasts().toasts()) {
        Json& row = rows.emplace_back(Json::object());
        row["kind"] = kindText(toast.kind);
        row["text"] = toast.text.toStdString();
        row["action"] = toast.actionTitle ? Json(toast.actionTitle->toStdString()) : Json(nullptr);
    }
    return rows;
}

std::string RemovalSession::toastsText()
{
    std::string lines;
    for (const Toast& toast : model().toasts().toasts()) {
        lines += displayLine(toast.text.toStdString()) + "\n";
    }
    return lines;
}

void RemovalSession::showProgress()
{
    const auto& bulk = model().removal().runs().bulk();
    if (!bulk) {
        endProgress();
        return;
    }
    m_shown = true;
    // Cut off at the edge: a line that went on below could not be erased. Progress that cannot be
    // shown is no reason to stop.
    static_cast<void>(
        writeAll(STDERR_FILENO, "\r\x1b[K\x1b[?7l" + bulk->title.toStdString() + "  " +
                                    countText(bulk->done) + " of " + countText(bulk->total) + "  " +
                                    displayLine(bulk->current.toStdString()) + "\x1b[?7h"));
}

void RemovalSession::endProgress()
{
    if (std::exchange(m_shown, false)) {
        static_cast<void>(writeAll(STDERR_FILENO, "\r\x1b[K"));
    }
}

} // namespace zolva::ctl

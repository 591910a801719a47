#include "screens/model/AppDetail.h"

#include "screens/model/ShownText.h"

#include <algorithm>

namespace zolva {

AppDetail::AppDetail(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    connect(&model.live(), &LiveData::appsChanged, this, &AppDetail::refresh);
    connect(&model.live(), &LiveData::selectedAppIDChanged, this, &AppDetail::refresh);
    connect(&model.live(), &LiveData::residueChanged, this, &AppDetail::refreshLines);
    refresh();
}

QString AppDetail::name() const
{
    return m_app ? shownLine(m_app->name) : QString();
}

QString AppDetail::meta() const
{
    return m_app ? appMeta(*m_app) : QString();
}

QString AppDetail::summary() const
{
    if (!m_app) {
        return {};
    }
    return m_model.live().residue().isLoading() ? QStringLiteral("Scanning this app’s files…")
                                                : leftoverSummary(*m_app, leftovers());
}

bool AppDetail::isEmpty() const
{
    return m_app && m_lines.isEmpty() && !m_model.live().residue().isLoading();
}

void AppDetail::refresh()
{
    m_app.reset();
    const LiveData& live = m_model.live();
    if (live.selectedAppID() && live.apps().value() != nullptr) {
        const std::vector<UninstallApp>& apps = *live.apps().value();
        const auto found = std::find_if(apps.begin(), apps.end(), [&live](const UninstallApp& app) {
            return app.id() == *live.selectedAppID();
        });
        if (found != apps.end()) {
            m_app = *found;
        }
    }
    refreshLines();
}

void AppDetail::refreshLines()
{
    m_lines = leftoverLines(leftovers());
    Q_EMIT changed();
}

const Leftovers& AppDetail::leftovers() const
{
    static const Leftovers none;
    const Leftovers* const held = m_model.live().residue().value();
    return held != nullptr ? *held : none;
}

} // namespace zolva

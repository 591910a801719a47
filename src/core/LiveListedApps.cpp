#include "core/LiveListedApps.h"

#include "async/Unawaited.h"

#include <utility>

namespace zolva {

const std::vector<UninstallApp>* LiveListedApps::loaded() const
{
    return m_live.apps().value();
}

std::set<std::string> LiveListedApps::checkedApps() const
{
    return m_live.checkedApps();
}

std::optional<std::string> LiveListedApps::focused() const
{
    return m_live.selectedAppID();
}

void LiveListedApps::store(std::vector<UninstallApp> apps)
{
    m_live.storeApps(std::move(apps));
}

void LiveListedApps::clearChecked()
{
    const PickSet checked = m_live.checkedApps();
    m_live.setApps({checked.begin(), checked.end()}, false);
}

void LiveListedApps::clearFocus()
{
    m_live.clearFocus();
}

void LiveListedApps::focus(UninstallApp app)
{
    unawaited(m_live.focusApp(std::move(app)));
}

} // namespace zolva

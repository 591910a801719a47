#pragma once

#include "core/LiveData.h"
#include "removal/runs/UninstallRun.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva {

/// The list of applications that the screens show, for the uninstall. The live data outlives it.
class LiveListedApps final : public ListedApps
{
public:
    explicit LiveListedApps(LiveData& live) : m_live(live) {}

    [[nodiscard]] const std::vector<UninstallApp>* loaded() const override;
    [[nodiscard]] std::set<std::string> checkedApps() const override;
    [[nodiscard]] std::optional<std::string> focused() const override;
    void store(std::vector<UninstallApp> apps) override;
    void clearChecked() override;
    void clearFocus() override;
    void focus(UninstallApp app) override;

private:
    LiveData& m_live;
};

} // namespace zolva

#pragma once

#include "core/Loadable.h"
#include "core/Selection.h"
#include "files/Records.h"

#include <QObject>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva {

/// The lists that removals start from, what is picked in them, and which row is unfolded. Rows go
/// by their keys: a category's id, a project's `projectKey`, an installer's path. Main thread.
class AppLists final : public QObject
{
    Q_OBJECT

public:
    using Keys = std::vector<std::string>;
    using QObject::QObject;

    /// Of the last scan; absent before it, and while a run's outcome is not yet scanned.
    [[nodiscard]] const std::optional<std::vector<Category>>& liveCats() const
    {
        return m_liveCats;
    }
    [[nodiscard]] const std::optional<std::vector<Project>>& liveProjects() const
    {
        return m_liveProjects;
    }
    [[nodiscard]] const std::vector<InstallerItem>& installerList() const
    {
        return m_installerList;
    }
    [[nodiscard]] const Loadable<Nothing>& installerState() const { return m_installerState; }
    [[nodiscard]] int installerGen() const { return m_installerGen; }

    [[nodiscard]] const PickMap& sel() const { return m_sel; }
    [[nodiscard]] const PickSet& projPicked() const { return m_projPicked; }
    [[nodiscard]] const PickSet& instPicked() const { return m_instPicked; }
    /// By list: "clean", "purge" or "installer".
    [[nodiscard]] const std::map<std::string, PickAnchor>& pickAnchor() const
    {
        return m_pickAnchor;
    }

    /// The unfolded category, and the unfolded row of another list.
    [[nodiscard]] const std::optional<std::string>& openCat() const { return m_openCat; }
    [[nodiscard]] const std::optional<std::string>& resOpen() const { return m_resOpen; }
    void setOpenCat(std::optional<std::string> id);
    void setResOpen(std::optional<std::string> id);

    /// A click on a row of `order`, the rows as shown, with or without the shift key.
    void pickClean(const std::string& id, const Keys& order, bool shift);
    void pickPurge(const std::string& project, const Keys& order, bool shift);
    void pickInstaller(const std::string& item, const Keys& order, bool shift);
    /// All of the rows, or none of them; the others stay as they are.
    void setClean(const Keys& ids, bool picked);
    void setPurge(const Keys& projects, bool picked);
    void setInstallers(const Keys& items, bool picked);

    /// A scan's result. What is picked and still there stays picked; no category stays unfolded.
    void takeCategories(std::vector<Category> found);
    void takeProjects(std::vector<Project> found);
    /// Nothing is left to pick until the next scan has ended; what is picked stays so.
    void forgetCategories();
    void forgetProjects();

    enum class Removal
    {
        None,
        IsGoing ///< what was dropped may still be on the disk, and be found
    };
    /// A scan of the installers has begun; gives its number.
    int beginInstallers(Removal removal);
    /// The result of the scan of that number; dropped if a newer one has begun. Nothing stays
    /// picked.
    void takeInstallers(int gen, std::vector<InstallerItem> found);
    /// Takes rows, and their ticks, away by their paths. No scan brings them back that begins
    /// before their removal has ended.
    void dropInstallers(const Keys& paths);

Q_SIGNALS:
    void liveCatsChanged();
    void liveProjectsChanged();
    void installersChanged(); ///< the list or its state
    void selChanged();
    void projPickedChanged();
    void instPickedChanged();
    void openCatChanged();
    void resOpenChanged();

private:
    std::optional<std::vector<Category>> m_liveCats;
    std::optional<std::vector<Project>> m_liveProjects;
    std::vector<InstallerItem> m_installerList;
    Loadable<Nothing> m_installerState;
    int m_installerGen = 0;
    PickSet m_dropped; ///< what the scan that is going may find and no list is to show
    PickMap m_sel;
    PickSet m_projPicked;
    PickSet m_instPicked;
    std::map<std::string, PickAnchor> m_pickAnchor;
    std::optional<std::string> m_openCat;
    std::optional<std::string> m_resOpen;
};

} // namespace zolva

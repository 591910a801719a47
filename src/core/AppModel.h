#pragma once

#include "core/AppDependencies.h"
#include "core/AppLists.h"
#include "core/AppRemoval.h"
#include "core/AppSettings.h"
#include "core/LiveData.h"
#include "core/SortKey.h"
#include "removal/Toasts.h"
#include "removal/runs/ListRuns.h"
#include "scanners/DiskAccess.h"
#include "updates/UpdateController.h"

#include <QCoroTask>
#include <QObject>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva {

/// The one object that the screens read and call: it owns the parts of the model and wires them
/// together. Signals fire on every change of what they name. It begins complete: no scan, no run
/// of the tool and no stream starts by itself. What still runs when it ends is dropped. Main
/// thread.
class AppModel final : public QObject
{
    Q_OBJECT

public:
    explicit AppModel(AppDependencies dependencies, QObject* parent = nullptr);

    [[nodiscard]] LiveData& live() { return m_live; }
    [[nodiscard]] UpdateController& updates() { return m_updates; }
    [[nodiscard]] AppSettings& settings() { return m_settings; }
    [[nodiscard]] Exclusions& exclusions() { return m_settings.exclusions(); }
    [[nodiscard]] AppLists& lists() { return m_lists; }
    [[nodiscard]] ToastList& toasts() { return m_toasts; }
    [[nodiscard]] AppRemoval& removal() { return m_removal; }

    /// "home", "clean", "purge", "installer", "uninstall", "analyze", "status" or "settings".
    [[nodiscard]] const std::string& screen() const { return m_screen; }
    /// Leaves the screen, be it for itself: no sheet stays up, and no result of a run stays shown.
    void go(const std::string& screen);

    /// The confirmation that is up, if any.
    [[nodiscard]] const std::optional<std::string>& sheet() const { return m_sheet; }
    void setSheet(std::optional<std::string> id);
    /// Only where it has something to confirm.
    void raiseSheet(const std::string& id);
    void askEmptyTrash(); ///< unless it is empty
    /// Confirmed: takes the sheet away and starts what it is about.
    void runSheet();

    /// The confirmations whose runs were started.
    [[nodiscard]] const std::set<std::string>& done() const { return m_done; }
    void markDone(const std::string& id) { m_done.insert(id); }

    void removeInstaller(const InstallerItem& item); ///< without a sheet
    void emptyTrash();

    /// Bytes that the last run gave back.
    [[nodiscard]] std::int64_t lastCleanFreed() const { return m_lastCleanFreed; }
    [[nodiscard]] std::int64_t lastPurgeFreed() const { return m_lastPurgeFreed; }
    void setLastCleanFreed(std::int64_t bytes);
    void setLastPurgeFreed(std::int64_t bytes);

    [[nodiscard]] bool systemIsDark() const { return m_systemIsDark; }
    [[nodiscard]] bool isLightTheme() const;

    /// By screen; one without an entry shows its largest rows first.
    [[nodiscard]] const std::map<std::string, SortKey>& sort() const { return m_sort; }
    [[nodiscard]] SortKey sortOf(const std::string& screen) const;
    void setSort(const std::string& screen, SortKey key);

    /// What is typed into a screen's search field; "uninstall" has one.
    [[nodiscard]] const std::map<std::string, std::string>& query() const { return m_query; }
    [[nodiscard]] std::string queryOf(const std::string& screen) const;
    void setQuery(const std::string& screen, std::string text);

    /// Folders of the home that exist and cannot be listed, as the newest probe found them.
    [[nodiscard]] const std::vector<diskAccess::Location>& blockedLocations() const
    {
        return m_blockedLocations;
    }
    [[nodiscard]] bool showAccessIntro() const { return m_showAccessIntro; }
    /// Of the volume that holds the home, as bytes; empty where it has none.
    [[nodiscard]] std::string volumeName() const;
    /// For good: it never comes back.
    void dismissAccessIntro(bool openSettings);
    /// Where the system lets the user grant access to folders.
    void openAccessSettings() const;
    /// A page of the web in the user's browser.
    void openPage(const std::string& url) const;
    /// Shows the item in its folder, in the desktop's own file manager: `tildePath` form or not.
    void reveal(const std::string& path) const;
    void openToolLicense() const;

    /// The last step of a start: looks for an update if the last look was a day ago. Apart from the
    /// others, since it writes, and loads what the network needs: it may wait for the first frame.
    void checkForUpdatesIfDue();

    /// Every scan, afresh.
    void scanAll();
    /// Through the model a scan also brings its list and what is picked up to date. Without `force`
    /// a result that is held is kept.
    [[nodiscard]] QCoro::Task<> scanClean(bool force);
    [[nodiscard]] QCoro::Task<> scanPurge(bool force);
    void scanInstallers();
    void rescanClean(); ///< nothing of a run stays up
    void scanForMenu(); ///< for the panel of the menu bar: keeping the results held
    void rescanForMenu();

Q_SIGNALS:
    void screenChanged();
    void sheetChanged();
    void lastCleanFreedChanged();
    void lastPurgeFreedChanged();
    void systemIsDarkChanged();
    void isLightThemeChanged();
    void sortChanged();
    void queryChanged();
    void blockedLocationsChanged();
    void showAccessIntroChanged();

private:
    void followAppearance(SystemAppearance* appearance);
    void readAppearance(const SystemAppearance* appearance);
    void checkPrefs();
    void checkRunJournal(const std::string& folder);
    void refreshMeters();
    void cleanSelected();
    void purgeSelected();
    void removeInstallers();
    [[nodiscard]] QCoro::Task<> countInstallerRun(QCoro::Task<RunReport> run);
    void uninstallTicked();
    [[nodiscard]] QCoro::Task<> introduceAccess();
    [[nodiscard]] QCoro::Task<> probeAccess();
    [[nodiscard]] QCoro::Task<> readInstallers(int gen);
    void setBlockedLocations(std::vector<diskAccess::Location> blocked);
    void setShowAccessIntro(bool shown);

    LiveData m_live;
    UpdateController m_updates;
    AppSettings m_settings;
    AppLists m_lists;
    ToastList m_toasts;
    AppReads m_reads;
    AppDoors m_doors;

    std::string m_screen = "home";
    std::optional<std::string> m_sheet;
    std::set<std::string> m_done;
    std::int64_t m_lastCleanFreed = 0;
    std::int64_t m_lastPurgeFreed = 0;
    int m_installerRuns = 0; ///< that are going
    bool m_systemIsDark = true;
    std::map<std::string, SortKey> m_sort;
    std::map<std::string, std::string> m_query;
    std::vector<diskAccess::Location> m_blockedLocations;
    bool m_showAccessIntro = false;
    AppRemoval m_removal; ///< goes first: its runs end with it
};

} // namespace zolva

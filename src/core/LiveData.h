#pragma once

#include "core/LiveScans.h"
#include "core/Loadable.h"
#include "core/MoLocation.h"
#include "core/MoRunner.h"
#include "core/Selection.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// All that is read from the outside: the status stream of the tool and the results of the scans.
/// A slow read never overwrites the answer to a newer question: a counter, or the key asked for,
/// is compared when the result arrives, and a stale one is dropped without a word. Signals fire on
/// every change of what they name. Main thread.
class LiveData final : public QObject
{
    Q_OBJECT

public:
    using Seconds = std::chrono::seconds;
    /// How many samples each series holds.
    static constexpr std::size_t seriesLength = 60;

    LiveData(std::unique_ptr<MoRunner> runner, LiveScans scans,
             const MoLocation& location = moLocation(), QObject* parent = nullptr);
    /// Ends the stream. What still scans is dropped when it arrives.
    ~LiveData() override;

    [[nodiscard]] bool moAvailable() const { return m_moKind != MoLocation::Kind::Absent; }
    [[nodiscard]] MoLocation::Kind moKind() const { return m_moKind; }
    [[nodiscard]] const std::optional<std::string>& moVersion() const { return m_moVersion; }

    /// The newest sample, kept when the stream ends; and why it ended.
    [[nodiscard]] const std::optional<StatusResult>& status() const { return m_status; }
    [[nodiscard]] const std::optional<std::string>& statusError() const { return m_statusError; }
    [[nodiscard]] const std::vector<double>& cpuSeries() const { return m_cpuSeries; }
    [[nodiscard]] const std::vector<double>& memSeries() const { return m_memSeries; }
    [[nodiscard]] bool isStreaming() const { return m_statusTask != nullptr; }
    [[nodiscard]] int statusGen() const { return m_statusGen; }
    [[nodiscard]] int statusRefs() const { return m_statusRefs; }
    [[nodiscard]] Seconds pollInterval() const { return m_pollInterval; }

    /// One more, or one fewer, who looks at the status. The first starts the stream, the last one
    /// stops it.
    void retainStatus();
    void releaseStatus();
    /// After a stream that has ended: a new one, if anybody looks.
    void restartStatus();
    /// For the next stream; one that runs is replaced where this is a change.
    void setPollInterval(Seconds interval);

    [[nodiscard]] const Loadable<std::vector<UninstallApp>>& apps() const { return m_apps; }
    [[nodiscard]] const std::optional<std::string>& selectedAppID() const
    {
        return m_selectedAppID;
    }
    [[nodiscard]] const PickSet& checkedApps() const { return m_checkedApps; }
    [[nodiscard]] const PickAnchor& pickAnchor() const { return m_pickAnchor; }
    [[nodiscard]] const Loadable<std::vector<ResidueRow>>& residue() const { return m_residue; }

    /// Reads the applications, unless they are held or being read.
    [[nodiscard]] QCoro::Task<> loadApps();
    /// Lets go of the list, so that the next `loadApps` reads it afresh.
    void forgetApps();
    /// Another list in place of the one held, as an uninstall leaves it.
    void storeApps(std::vector<UninstallApp> apps);
    /// Shows one application and reads its leftovers.
    [[nodiscard]] QCoro::Task<> focusApp(UninstallApp app);
    void clearFocus();
    [[nodiscard]] QCoro::Task<> loadResidue(UninstallApp app);
    /// A click on a row of `order`, the ids as shown.
    void pickApp(const std::string& id, const std::vector<std::string>& order, bool shift);
    void setApps(const std::vector<std::string>& ids, bool checked);

    [[nodiscard]] const Loadable<std::vector<Category>>& clean() const { return m_clean; }
    [[nodiscard]] const Loadable<std::vector<Project>>& purge() const { return m_purge; }

    /// Without `force` a result that is held is kept. A scan under way is no reason to stop.
    [[nodiscard]] QCoro::Task<> scanClean(bool force);
    [[nodiscard]] QCoro::Task<> scanPurge(bool force);

    [[nodiscard]] const Loadable<AnalyzeResult>& analysis() const { return m_analyze; }
    [[nodiscard]] const std::string& analyzePath() const { return m_analyzePath; }
    [[nodiscard]] std::int64_t analyzeFree() const { return m_analyzeFree; }
    /// Where the entries of the result stand in it, in the order of their names.
    [[nodiscard]] const std::vector<std::size_t>& analyzeByName() const { return m_analyzeByName; }

    /// Of the path, or of the last one asked for; an empty one means the well-known places.
    [[nodiscard]] QCoro::Task<> analyze(std::optional<std::string> path);

Q_SIGNALS:
    void statusChanged(); ///< a new sample, and both series with it
    void statusErrorChanged();
    void statusEnded(); ///< the running stream, by itself, not stopped; its error has been told
    void appsChanged();
    void selectedAppIDChanged();
    void checkedAppsChanged();
    void residueChanged();
    void cleanChanged();
    void purgeChanged();
    void analyzeChanged(); ///< the result, its path or the free space

private:
    void startStatus();
    void stopStatus();
    static QCoro::Task<> followStatus(QPointer<LiveData> self, std::shared_ptr<StatusStream> stream,
                                      int gen);
    void takeSample(StatusResult sample);
    void setStatusError(std::optional<std::string> text);
    void setSelectedApp(std::optional<std::string> id);
    void takeApps(std::vector<UninstallApp> apps);

    std::unique_ptr<MoRunner> m_runner;
    LiveScans m_scans;
    MoLocation::Kind m_moKind;
    std::optional<std::string> m_moVersion;

    std::optional<StatusResult> m_status;
    std::optional<std::string> m_statusError;
    std::vector<double> m_cpuSeries;
    std::vector<double> m_memSeries;
    std::shared_ptr<StatusStream> m_statusTask; ///< the running loop's
    int m_statusGen = 0;
    int m_statusRefs = 0;
    Seconds m_pollInterval{1};

    Loadable<std::vector<UninstallApp>> m_apps;
    std::optional<std::string> m_selectedAppID;
    PickSet m_checkedApps;
    PickAnchor m_pickAnchor;
    Loadable<std::vector<ResidueRow>> m_residue;
    int m_appsGen = 0;

    Loadable<AnalyzeResult> m_analyze;
    std::string m_analyzePath;
    std::int64_t m_analyzeFree = 0;
    std::vector<std::size_t> m_analyzeByName;

    Loadable<std::vector<Category>> m_clean;
    Loadable<std::vector<Project>> m_purge;
    int m_cleanGen = 0;
    int m_purgeGen = 0;
};

} // namespace zolva

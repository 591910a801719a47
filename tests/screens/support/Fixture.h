#pragma once

#include "core/ModelWorld.h"
#include "screens/model/ScreenModel.h"

#include <QJSEngine>
#include <QObject>
#include <QQmlEngine>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zolva::test {

/// A whole model for the test of a screen, over a disk in memory, on time that stands, in no home
/// but the program's. What it offers goes through the model's own deeds; a scan stays under way
/// until it is finished here, and a run works in the background until `bulk` is gone. Make one for
/// each test function; what shows it may outlive it a moment. Main thread.
class Fixture : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(zolva::ScreenModel* model READ model CONSTANT)
    /// What the model was asked to do on the outside: in order "clean scan", "purge scan",
    /// "installer scan", "apps read", "analyze PATH", "access settings opened", "log folder
    /// opened", "Trash opened", "update check", "page ADDRESS", "revealed PATH", "license opened"
    /// and "toast: ACTION"; behind these, in order, "trash PATH", "purge PATH", "delete NAME" ….
    Q_PROPERTY(QStringList calls READ calls)
    /// For showing.
    Q_PROPERTY(QString homeFolder READ homeFolder CONSTANT)
    /// How often the program would have ended.
    Q_PROPERTY(int quits READ quits NOTIFY quitsChanged)
    /// How many hold the stream of readings, and how often it was started.
    Q_PROPERTY(int statusRefs READ statusRefs)
    Q_PROPERTY(int statusStreams READ statusStreams)

public:
    explicit Fixture(QObject* parent = nullptr);
    ~Fixture() override;

    [[nodiscard]] ScreenModel* model() const;
    [[nodiscard]] QStringList calls() const;
    [[nodiscard]] QString homeFolder() const;
    [[nodiscard]] int quits() const { return m_quits; }
    [[nodiscard]] int statusRefs() const;
    [[nodiscard]] int statusStreams() const;

    // What the next scan finds, and that scan from its beginning to its end. Fields that are left
    // out have their defaults; sizes are bytes, ages days. Each row's paths are put on the disk.
    /// `{name, desc, sudo, paths: [{p, b, prot, sudo}]}`
    Q_INVOKABLE void setCategories(const QVariantList& rows);
    /// "Category 1" … of 1 MB for each path and rank from below: the first is the largest.
    Q_INVOKABLE void categories(int count, int pathsEach);
    /// `{p, artifact, b, age}`
    Q_INVOKABLE void setProjects(const QVariantList& rows);
    /// "~/code/project1/node_modules" …
    Q_INVOKABLE void projects(int count);
    /// `{name, src, p, b, age}`
    Q_INVOKABLE void setInstallers(const QVariantList& rows);
    /// "~/Downloads/installer1.dmg" …
    Q_INVOKABLE void installers(int count);
    /// `{name, bundleID, path, source, size, version, installed, bundleBytes}`, the day in ISO form
    Q_INVOKABLE void setApps(const QVariantList& rows);
    /// "/Applications/App 1.app" …
    Q_INVOKABLE void apps(int count);

    /// `{path, entries: [{name, path, size, isDir}], largeFiles: [{name, path, size}], totalSize,
    /// totalFiles}`; names that are left out are the last parts of the paths, and totals the sums.
    Q_INVOKABLE void setAnalysis(const QVariantMap& result);
    /// "folder 1" … below the path, of 1 MB for each rank from below.
    Q_INVOKABLE void analysis(const QString& path, int count);
    /// What the newest analysis finds that is under way.
    Q_INVOKABLE void finishAnalysis(const QVariantMap& result);

    // A scan in its two parts. The second one ends the newest scan, by whomever it was begun, with
    // the rows that were set last; without any under way it throws.
    Q_INVOKABLE void beginCleanScan();
    Q_INVOKABLE void finishCleanScan();
    Q_INVOKABLE void beginPurgeScan();
    Q_INVOKABLE void finishPurgeScan();
    Q_INVOKABLE void beginInstallerScan();
    Q_INVOKABLE void finishInstallerScan();
    Q_INVOKABLE void beginAppsScan();
    Q_INVOKABLE void finishAppsScan();
    Q_INVOKABLE void failAppsScan(); ///< the only one that can fail
    /// The search for the leftovers of the application in focus ends with these:
    /// `{loc, p, n, b, shared, sharedWith}`
    Q_INVOKABLE void finishLeftovers(const QVariantList& rows);

    /// It stays on the disk whatever is tried, but for an administrator where that helps.
    Q_INVOKABLE void hold(const QString& path, bool adminMayMove);

    /// Ticks, or unticks, every row of a list: "clean", "purge", "installer" or "uninstall".
    Q_INVOKABLE void pickAll(const QString& list, bool picked = true);
    /// Any confirmation, also where nothing is picked; an empty id takes it away.
    Q_INVOKABLE void openSheet(const QString& id);

    Q_INVOKABLE void exclude(const QString& path);
    Q_INVOKABLE void unexclude(const QString& path);
    Q_INVOKABLE void setKeepInTrash(bool keep);
    /// What lies in the Trash, when the meter has read it.
    Q_INVOKABLE void setTrash(int count, double bytes, bool unreadable = false);
    /// Bytes of the home's volume, when the meter has read them.
    Q_INVOKABLE void setSpace(double available, double total);
    /// A reading from the running stream; without one it throws. `{health, healthMsg, cpu, load1,
    /// load5, load15, used, total, usedPercent, pressure, model, cpuModel, uptime}`
    Q_INVOKABLE void readStatus(const QVariantMap& fields);
    /// The running stream ends with these words.
    Q_INVOKABLE void failStatus(const QString& words);
    /// As a run tells its progress.
    Q_INVOKABLE void setBulk(const QString& title, int total, int done, const QString& current);
    Q_INVOKABLE void clearBulk();
    /// Whatever is to be moved to the Trash waits before it goes, until the disk is let go.
    Q_INVOKABLE void holdDisk();
    Q_INVOKABLE void letDiskGo();
    /// `kind` is "info", "warning" or "success"; without a title there is no action. Gives its id.
    Q_INVOKABLE QUuid addToast(const QString& kind, const QString& text,
                               const QString& actionTitle = {});
    Q_INVOKABLE void advance(int ms);
    /// Read by the panel of the menu bar when it opens.
    Q_INVOKABLE void setVolumeName(const QString& name);
    /// Bytes, as the meter reads them; nothing is known of it before.
    Q_INVOKABLE void setVolumeSpace(double available, double total);

    /// As the probe of an installer scan finds them; that scan is finished with the rows set.
    Q_INVOKABLE void setBlocked(const QStringList& labels);
    /// The probe at the start ends, with the locations set, or "Mail" if there are none. Once.
    Q_INVOKABLE void showIntro();

    Q_INVOKABLE void setDark(bool dark);             ///< the desktop
    Q_INVOKABLE void setTheme(const QString& theme); ///< "light", "dark" or "system"

Q_SIGNALS:
    void quitsChanged();

protected:
    /// Of a program that tells this of itself.
    Fixture(const AppBundle& bundle, QObject* parent);

    [[nodiscard]] ModelWorld& fakes() const;
    /// False, and thrown, where no call waits.
    template <typename T>
    bool finish(const HeldCalls<T>& calls, T value, const char* what);

private:
    class World;

    void takeCategories(std::vector<Category> rows);
    void takeProjects(std::vector<Project> rows);
    void takeInstallers(std::vector<InstallerItem> rows);
    void takeApps(std::vector<UninstallApp> rows);
    [[nodiscard]] AppModel& app() const;
    [[nodiscard]] RecordingTrash& disk() const;
    /// Null, and thrown, where none runs.
    [[nodiscard]] std::shared_ptr<StatusStream> statusStream() const;

    std::unique_ptr<World> m_world;
    std::vector<Category> m_categories;
    std::vector<Project> m_projects;
    std::vector<InstallerItem> m_installers;
    std::vector<UninstallApp> m_apps;
    std::vector<std::string> m_blocked;
    std::map<const void*, std::size_t> m_finished; ///< how many calls are over
    int m_inTrash = 0;
    int m_quits = 0;
};

template <typename T>
bool Fixture::finish(const HeldCalls<T>& calls, T value, const char* what)
{
    std::size_t& finished = m_finished[&calls];
    if (finished == calls.count()) {
        if (QJSEngine* const engine = qjsEngine(this)) {
            engine->throwError(QString::fromUtf8(what) + QStringLiteral(" is not under way"));
        }
        return false;
    }
    finished = calls.count();
    calls.answer(finished - 1, std::move(value));
    return true;
}

} // namespace zolva::test

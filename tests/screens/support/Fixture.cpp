#include "Fixture.h"

#include "Rows.h"

#include "async/Unawaited.h"
#include "files/HomeFolder.h"

#include "screens/model/ShownText.h"

#include "support/qt/EventLoop.h"

#include <QJSEngine>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace zolva::test {

namespace {

/// Notes that the list of applications is asked for.
class NotingRunner final : public MoRunner
{
public:
    NotingRunner(RunnerScript& script, QStringList& calls) : m_runner(script), m_calls(calls) {}

    std::shared_ptr<StatusStream> statusStream(std::chrono::seconds interval) override
    {
        return m_runner.statusStream(interval);
    }
    QCoro::Task<AppList> listApps() override
    {
        m_calls.push_back(QStringLiteral("apps read"));
        return m_runner.listApps();
    }

private:
    ScriptedRunner m_runner;
    QStringList& m_calls;
};

/// The same call, noted.
template <typename Call>
void noteInto(QStringList& calls, const char* name, Call& call)
{
    call = [&calls, name, inner = std::move(call)](auto... arguments) {
        calls.push_back(QString::fromUtf8(name));
        return inner(std::move(arguments)...);
    };
}

/// Where the run's thread waits while the disk is held.
class Gate
{
public:
    void set(bool isShut)
    {
        {
            const std::lock_guard guard(m_guard);
            m_isShut = isShut;
        }
        m_changed.notify_all();
    }
    void pass()
    {
        std::unique_lock guard(m_guard);
        m_changed.wait(guard, [this] { return !m_isShut; });
    }

private:
    std::mutex m_guard;
    std::condition_variable m_changed;
    bool m_isShut = false;
};

BannerKind kindFrom(const QString& kind)
{
    if (kind == QStringLiteral("warning")) {
        return BannerKind::Warning;
    }
    return kind == QStringLiteral("success") ? BannerKind::Success : BannerKind::Info;
}

} // namespace

/// Goes one turn of the event loop after the fixture, when what shows its model has gone.
class Fixture::World final : public QObject
{
public:
    explicit World(const AppBundle& bundle)
    {
        fakes.bundle = bundle;
        AppDependencies all = fakes.dependencies({.meters = false, .journalCheck = false});
        all.runner = std::make_unique<NotingRunner>(fakes.script, calls);
        noteInto(calls, "clean scan", all.scans.clean);
        noteInto(calls, "purge scan", all.scans.purge);
        noteInto(calls, "installer scan", all.reads.installers);
        noteInto(calls, "access settings opened", all.doors.accessSettings);
        noteInto(calls, "log folder opened", all.doors.logFolder);
        noteInto(calls, "Trash opened", all.doors.trash);
        all.scans.analyze = [this, inner = std::move(all.scans.analyze)](std::string path) {
            calls.push_back(QStringLiteral("analyze ") + QString::fromStdString(path));
            return inner(std::move(path));
        };
        noteInto(calls, "update check", all.updates.check);
        noteInto(calls, "license opened", all.doors.toolLicense);
        all.disk.space = [this] { return space; };
        all.doors.page = [this](const std::string& url) {
            calls.push_back(QStringLiteral("page ") + QString::fromStdString(url));
        };
        all.doors.reveal = [this](const std::string& path) {
            calls.push_back(QStringLiteral("revealed ") + QString::fromStdString(path));
        };
        fakes.disk->beforeMove([gate = gate](const std::string&) { gate->pass(); });
        fakes.model = std::make_unique<AppModel>(std::move(all));
        screen = std::make_unique<ScreenModel>(*fakes.model, fakes.clock);
    }
    ~World() override
    {
        gate->set(false);
        screen.reset();
    }

    TempTree tree;
    QStringList calls;
    VolumeSpace space;
    std::shared_ptr<Gate> gate = std::make_shared<Gate>();
    ModelWorld fakes{tree.path("logs")};
    std::unique_ptr<ScreenModel> screen;
};

Fixture::Fixture(QObject* parent)
    : Fixture({.shortVersion = "0.1.0", .version = "5", .resourceFolders = {}}, parent)
{}

Fixture::Fixture(const AppBundle& bundle, QObject* parent)
    : QObject(parent), m_world(std::make_unique<World>(bundle))
{
    connect(m_world->screen->quit(), &QuitModel::quit, this, [this] {
        ++m_quits;
        Q_EMIT quitsChanged();
    });
}

Fixture::~Fixture()
{
    m_world.release()->deleteLater();
}

ScreenModel* Fixture::model() const
{
    return m_world->screen.get();
}

ModelWorld& Fixture::fakes() const
{
    return m_world->fakes;
}

AppModel& Fixture::app() const
{
    return *m_world->fakes.model;
}

RecordingTrash& Fixture::disk() const
{
    return *m_world->fakes.disk;
}

QString Fixture::homeFolder() const
{
    return shownText(zolva::homeFolder());
}

QStringList Fixture::calls() const
{
    QStringList all = m_world->calls;
    for (const std::string& change : disk().changes()) {
        all.push_back(QString::fromStdString(change));
    }
    return all;
}

void Fixture::setCategories(const QVariantList& rows)
{
    takeCategories(categoriesFrom(rows));
}

void Fixture::categories(int count, int pathsEach)
{
    takeCategories(manyCategories(count, pathsEach));
}

void Fixture::takeCategories(std::vector<Category> rows)
{
    m_categories = std::move(rows);
    for (const Category& row : m_categories) {
        for (const CatPath& path : row.paths) {
            disk().put(path.p, path.b);
        }
    }
    beginCleanScan();
    finishCleanScan();
}

void Fixture::setProjects(const QVariantList& rows)
{
    takeProjects(projectsFrom(rows));
}

void Fixture::projects(int count)
{
    takeProjects(manyProjects(count));
}

void Fixture::takeProjects(std::vector<Project> rows)
{
    m_projects = std::move(rows);
    for (const Project& row : m_projects) {
        disk().put(projectKey(row), row.b);
    }
    beginPurgeScan();
    finishPurgeScan();
}

void Fixture::setInstallers(const QVariantList& rows)
{
    takeInstallers(installersFrom(rows));
}

void Fixture::installers(int count)
{
    takeInstallers(manyInstallers(count));
}

void Fixture::takeInstallers(std::vector<InstallerItem> rows)
{
    m_installers = std::move(rows);
    for (const InstallerItem& row : m_installers) {
        disk().put(row.p, row.b);
    }
    beginInstallerScan();
    finishInstallerScan();
}

void Fixture::setApps(const QVariantList& rows)
{
    takeApps(appsFrom(rows));
}

void Fixture::apps(int count)
{
    takeApps(manyApps(count));
}

void Fixture::takeApps(std::vector<UninstallApp> rows)
{
    m_apps = std::move(rows);
    for (const UninstallApp& row : m_apps) {
        disk().put(row.path, row.bundleBytes.value_or(0));
    }
    beginAppsScan();
    finishAppsScan();
}

void Fixture::setAnalysis(const QVariantMap& result)
{
    unawaited(app().live().analyze(result.value(QStringLiteral("path")).toString().toStdString()));
    finishAnalysis(result);
}

void Fixture::analysis(const QString& path, int count)
{
    unawaited(app().live().analyze(path.toStdString()));
    finish(m_world->fakes.held.analyze, Analysis{manyEntries(path.toStdString(), count)},
           "an analysis");
}

void Fixture::finishAnalysis(const QVariantMap& result)
{
    AnalyzeResult found = analysisFrom(result);
    for (const LargeFile& file : found.largeFiles) {
        disk().put(file.path, file.size);
    }
    finish(m_world->fakes.held.analyze, Analysis{std::move(found)}, "an analysis");
}

void Fixture::beginCleanScan()
{
    unawaited(app().scanClean(true));
}

void Fixture::finishCleanScan()
{
    finish(m_world->fakes.held.clean, m_categories, "a Clean scan");
}

void Fixture::beginPurgeScan()
{
    unawaited(app().scanPurge(true));
}

void Fixture::finishPurgeScan()
{
    finish(m_world->fakes.held.purge, m_projects, "a Purge scan");
}

void Fixture::beginInstallerScan()
{
    app().scanInstallers();
}

void Fixture::finishInstallerScan()
{
    finish(m_world->fakes.installers, m_installers, "an installer scan");
}

void Fixture::beginAppsScan()
{
    app().live().forgetApps();
    unawaited(app().live().loadApps());
}

void Fixture::finishAppsScan()
{
    if (finish(m_world->fakes.script.lists, AppList(m_apps), "the reading of the apps")) {
        finish(m_world->fakes.held.enrich, m_apps, "the reading of the bundles");
    }
}

void Fixture::failAppsScan()
{
    finish(m_world->fakes.script.lists,
           AppList(tl::unexpected<MoFailure>(SystemError{"The list could not be read."})),
           "the reading of the apps");
}

void Fixture::finishLeftovers(const QVariantList& rows)
{
    finish(m_world->fakes.held.residue, leftoversFrom(rows), "the search for leftovers");
}

void Fixture::hold(const QString& path, bool adminMayMove)
{
    disk().fail(path.toStdString(), "not permitted");
    if (adminMayMove) {
        disk().allowAdmin(path.toStdString());
    }
}

void Fixture::pickAll(const QString& list, bool picked)
{
    AppLists::Keys keys;
    if (list == QStringLiteral("clean")) {
        for (const Category& row : m_categories) {
            keys.push_back(row.id);
        }
        app().lists().setClean(keys, picked);
    } else if (list == QStringLiteral("purge")) {
        for (const Project& row : m_projects) {
            keys.push_back(projectKey(row));
        }
        app().lists().setPurge(keys, picked);
    } else if (list == QStringLiteral("installer")) {
        for (const InstallerItem& row : m_installers) {
            keys.push_back(row.p);
        }
        app().lists().setInstallers(keys, picked);
    } else {
        for (const UninstallApp& row : m_apps) {
            keys.push_back(row.id());
        }
        app().live().setApps(keys, picked);
    }
}

void Fixture::setVolumeName(const QString& name)
{
    m_world->fakes.volumeName = name.toStdString();
}

void Fixture::setVolumeSpace(double available, double total)
{
    m_world->fakes.volumeSpace = {static_cast<std::int64_t>(available),
                                  static_cast<std::int64_t>(total)};
    app().removal().space().refreshFreeSpace();
}

void Fixture::openSheet(const QString& id)
{
    app().setSheet(id.isEmpty() ? std::nullopt : std::optional(id.toStdString()));
}

void Fixture::exclude(const QString& path)
{
    app().exclusions().setWlDraft(path.toStdString());
    app().exclusions().addExclusion();
}

void Fixture::unexclude(const QString& path)
{
    app().exclusions().removeExclusion(path.toStdString());
}

void Fixture::setKeepInTrash(bool keep)
{
    app().settings().setKeepInTrash(keep);
}

void Fixture::setTrash(int count, double bytes, bool unreadable)
{
    const auto name = [](int number) { return "item" + std::to_string(number); };
    for (; m_inTrash > count; --m_inTrash) {
        disk().take(disk().trashFolder() + "/" + name(m_inTrash));
    }
    while (m_inTrash < count) {
        disk().putInTrash(name(++m_inTrash), 0);
    }
    disk().setMeasure(
        [size = static_cast<std::int64_t>(bytes)](const std::atomic<bool>&) { return size; });
    disk().setUnreadable(unreadable);
    TrashMeter& meter = app().removal().trash();
    meter.refreshTrashMeter();
    pumpUntil([&meter] { return !meter.isMeasuring(); });
}

void Fixture::setSpace(double available, double total)
{
    m_world->space = {static_cast<std::int64_t>(available), static_cast<std::int64_t>(total)};
    app().removal().space().refreshFreeSpace();
}

int Fixture::statusRefs() const
{
    return app().live().statusRefs();
}

int Fixture::statusStreams() const
{
    return static_cast<int>(m_world->fakes.script.streams.size());
}

std::shared_ptr<StatusStream> Fixture::statusStream() const
{
    const RunnerScript& script = m_world->fakes.script;
    auto stream = script.streams.empty() ? nullptr : script.newest();
    if (!stream) {
        if (QJSEngine* const engine = qjsEngine(this)) {
            engine->throwError(QStringLiteral("no stream of readings runs"));
        }
    }
    return stream;
}

void Fixture::readStatus(const QVariantMap& fields)
{
    if (const auto stream = statusStream()) {
        stream->send(statusFrom(fields));
    }
}

void Fixture::failStatus(const QString& words)
{
    if (const auto stream = statusStream()) {
        stream->finish(SystemError{words.toStdString()});
    }
}

void Fixture::setBulk(const QString& title, int total, int done, const QString& current)
{
    app().removal().runs().setBulk(BulkProgress{title, total, done, current});
}

void Fixture::clearBulk()
{
    app().removal().runs().setBulk(std::nullopt);
}

void Fixture::holdDisk()
{
    m_world->gate->set(true);
}

void Fixture::letDiskGo()
{
    m_world->gate->set(false);
}

QUuid Fixture::addToast(const QString& kind, const QString& text, const QString& actionTitle)
{
    if (actionTitle.isEmpty()) {
        return app().toasts().addToast(kindFrom(kind), text);
    }
    return app().toasts().addToast(kindFrom(kind), text, actionTitle,
                                   [&calls = m_world->calls, actionTitle] {
                                       calls.push_back(QStringLiteral("toast: ") + actionTitle);
                                   });
}

void Fixture::advance(int ms)
{
    m_world->fakes.clock.advance(std::chrono::milliseconds(ms));
    pumpOnce();
}

void Fixture::setBlocked(const QStringList& labels)
{
    m_blocked.clear();
    for (const QString& label : labels) {
        m_blocked.push_back(label.toStdString());
    }
    beginInstallerScan();
    finish(m_world->fakes.probes, ModelWorld::blocked(m_blocked), "a probe");
    finishInstallerScan();
}

void Fixture::showIntro()
{
    const std::vector<std::string> labels =
        m_blocked.empty() ? std::vector<std::string>{"Mail"} : m_blocked;
    m_world->fakes.probes.answer(0, ModelWorld::blocked(labels));
}

void Fixture::setDark(bool dark)
{
    m_world->fakes.appearance.dark = dark;
    Q_EMIT m_world->fakes.appearance.changed();
    pumpOnce();
}

void Fixture::setTheme(const QString& theme)
{
    app().settings().setThemeMode(themeModeFrom(theme.toStdString()));
}

} // namespace zolva::test

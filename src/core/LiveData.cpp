#include "core/LiveData.h"

#include "async/Unawaited.h"

#include <algorithm>
#include <set>
#include <utility>

namespace zolva {

namespace {

void append(std::vector<double>& series, double sample)
{
    series.push_back(sample);
    if (series.size() > LiveData::seriesLength) {
        series.erase(series.begin(),
                     series.end() - static_cast<std::ptrdiff_t>(LiveData::seriesLength));
    }
}

std::set<std::string> idsOf(const std::vector<UninstallApp>& apps)
{
    std::set<std::string> ids;
    for (const UninstallApp& app : apps) {
        ids.insert(app.id());
    }
    return ids;
}

} // namespace

LiveData::LiveData(std::unique_ptr<MoRunner> runner, LiveScans scans, const MoLocation& location,
                   QObject* parent)
    : QObject(parent), m_runner(std::move(runner)), m_scans(std::move(scans)),
      m_moKind(location.kind), m_moVersion(zolva::moVersion(location))
{}

LiveData::~LiveData()
{
    // Whoever these wake finds a whole object, and nothing that still waits for its answer.
    ++m_appsGen;
    stopStatus();
    m_runner.reset();
}

void LiveData::retainStatus()
{
    ++m_statusRefs;
    startStatus();
}

void LiveData::releaseStatus()
{
    m_statusRefs = std::max(m_statusRefs - 1, 0);
    if (m_statusRefs == 0) {
        stopStatus();
    }
}

void LiveData::restartStatus()
{
    stopStatus();
    startStatus();
}

void LiveData::setPollInterval(Seconds interval)
{
    const bool changed = interval != m_pollInterval;
    m_pollInterval = interval;
    if (changed && m_statusRefs > 0) {
        restartStatus();
    }
}

void LiveData::startStatus()
{
    if (m_statusTask || m_statusRefs < 1) {
        return;
    }
    const int gen = ++m_statusGen;
    const std::shared_ptr<StatusStream> stream = m_runner->statusStream(m_pollInterval);
    m_statusTask = stream;
    // Whoever hears this finds the stream running, and may already replace it or end this object.
    const QPointer<LiveData> self(this);
    setStatusError(std::nullopt);
    unawaited(followStatus(self, stream, gen));
}

void LiveData::stopStatus()
{
    if (const auto task = std::exchange(m_statusTask, nullptr)) {
        task->cancel();
    }
}

QCoro::Task<> LiveData::followStatus(QPointer<LiveData> self, std::shared_ptr<StatusStream> stream,
                                     int gen)
{
    while (true) {
        std::optional<StatusResult> sample = co_await stream->next();
        if (!self) {
            co_return;
        }
        if (!sample) {
            break;
        }
        self->takeSample(std::move(*sample));
        if (!self) {
            co_return;
        }
    }
    if (stream->failure()) {
        self->setStatusError(userText(*stream->failure()));
    }
    // The handle may be its successor's by now, or gone with a stream that was stopped.
    if (self && self->m_statusGen == gen && self->m_statusTask) {
        self->m_statusTask.reset();
        Q_EMIT self->statusEnded();
    }
}

void LiveData::takeSample(StatusResult sample)
{
    append(m_cpuSeries, sample.cpu.usage);
    append(m_memSeries, sample.memory.usedPercent);
    m_status = std::move(sample);
    const QPointer<LiveData> self(this);
    setStatusError(std::nullopt);
    if (self) {
        Q_EMIT statusChanged();
    }
}

void LiveData::setStatusError(std::optional<std::string> text)
{
    if (m_statusError != text) {
        m_statusError = std::move(text);
        Q_EMIT statusErrorChanged();
    }
}

QCoro::Task<> LiveData::loadApps()
{
    if (m_apps.isLoaded() || m_apps.isLoading()) {
        co_return;
    }
    const QPointer<LiveData> self(this);
    const int gen = ++m_appsGen;
    m_apps = Loadable<std::vector<UninstallApp>>::loading();
    Q_EMIT appsChanged();

    AppList list = co_await m_runner->listApps();
    if (!self) {
        co_return;
    }
    if (!list) {
        if (m_appsGen == gen) {
            m_apps = Loadable<std::vector<UninstallApp>>::failed(userText(list.error()));
            Q_EMIT appsChanged();
        }
        co_return;
    }
    std::vector<UninstallApp> apps = co_await m_scans.enrich(std::move(*list));
    if (self && m_appsGen == gen) {
        takeApps(std::move(apps));
    }
}

void LiveData::takeApps(std::vector<UninstallApp> apps)
{
    const std::set<std::string> ids = idsOf(apps);
    std::optional<UninstallApp> first;
    if (!apps.empty()) {
        first = apps.front();
    }
    const std::size_t checked = m_checkedApps.size();
    keepPicked(m_checkedApps, ids);
    storeApps(std::move(apps));
    if (m_checkedApps.size() != checked) {
        Q_EMIT checkedAppsChanged();
    }
    if (first && !(m_selectedAppID && ids.contains(*m_selectedAppID))) {
        unawaited(focusApp(std::move(*first)));
    }
}

void LiveData::forgetApps()
{
    m_apps = Loadable<std::vector<UninstallApp>>::idle();
    Q_EMIT appsChanged();
}

void LiveData::storeApps(std::vector<UninstallApp> apps)
{
    m_apps = Loadable<std::vector<UninstallApp>>::loaded(std::move(apps));
    Q_EMIT appsChanged();
}

QCoro::Task<> LiveData::focusApp(UninstallApp app)
{
    setSelectedApp(app.id());
    return loadResidue(std::move(app));
}

void LiveData::clearFocus()
{
    setSelectedApp(std::nullopt);
}

void LiveData::setSelectedApp(std::optional<std::string> id)
{
    if (m_selectedAppID != id) {
        m_selectedAppID = std::move(id);
        Q_EMIT selectedAppIDChanged();
    }
}

QCoro::Task<> LiveData::loadResidue(UninstallApp app)
{
    const QPointer<LiveData> self(this);
    const std::string key = app.id();
    m_residue = Loadable<std::vector<ResidueRow>>::loading();
    Q_EMIT residueChanged();

    std::vector<UninstallApp> held;
    if (m_apps.value()) {
        held = *m_apps.value();
    }
    std::vector<ResidueRow> rows = co_await m_scans.residue(std::move(app), std::move(held));
    if (self && m_selectedAppID == key) {
        m_residue = Loadable<std::vector<ResidueRow>>::loaded(std::move(rows));
        Q_EMIT residueChanged();
    }
}

void LiveData::pickApp(const std::string& id, const std::vector<std::string>& order, bool shift)
{
    pickRow(m_checkedApps, m_pickAnchor, id, order, shift);
    Q_EMIT checkedAppsChanged();
}

void LiveData::setApps(const std::vector<std::string>& ids, bool checked)
{
    for (const std::string& id : ids) {
        if (checked) {
            m_checkedApps.insert(id);
        } else {
            m_checkedApps.erase(id);
        }
    }
    Q_EMIT checkedAppsChanged();
}

QCoro::Task<> LiveData::scanClean(bool force)
{
    if (!force && m_clean.isLoaded()) {
        co_return;
    }
    const QPointer<LiveData> self(this);
    const int gen = ++m_cleanGen;
    m_clean = Loadable<std::vector<Category>>::loading();
    Q_EMIT cleanChanged();

    std::vector<Category> found = co_await m_scans.clean();
    if (self && m_cleanGen == gen) {
        m_clean = Loadable<std::vector<Category>>::loaded(std::move(found));
        Q_EMIT cleanChanged();
    }
}

QCoro::Task<> LiveData::scanPurge(bool force)
{
    if (!force && m_purge.isLoaded()) {
        co_return;
    }
    const QPointer<LiveData> self(this);
    const int gen = ++m_purgeGen;
    m_purge = Loadable<std::vector<Project>>::loading();
    Q_EMIT purgeChanged();

    std::vector<Project> found = co_await m_scans.purge();
    if (self && m_purgeGen == gen) {
        m_purge = Loadable<std::vector<Project>>::loaded(std::move(found));
        Q_EMIT purgeChanged();
    }
}

QCoro::Task<> LiveData::analyze(std::optional<std::string> path)
{
    if (path) {
        m_analyzePath = std::move(*path);
    }
    const QPointer<LiveData> self(this);
    const std::string noted = m_analyzePath;
    m_analyze = Loadable<AnalyzeResult>::loading();
    Q_EMIT analyzeChanged();

    Analysis found = co_await m_scans.analyze(noted);
    if (self && m_analyzePath == noted) {
        m_analyzeFree = found.free;
        m_analyzeByName = std::move(found.byName);
        m_analyze = Loadable<AnalyzeResult>::loaded(std::move(found.result));
        Q_EMIT analyzeChanged();
    }
}

} // namespace zolva

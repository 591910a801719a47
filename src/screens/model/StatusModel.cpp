#include "screens/model/StatusModel.h"

#include "screens/model/ShownText.h"
#include "screens/model/StatusMessages.h"

#include <utility>

namespace zolva {

namespace {

QList<qreal> shownSeries(const std::vector<double>& series)
{
    return {series.begin(), series.end()};
}

} // namespace

StatusModel::StatusModel(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    const LiveData& live = model.live();
    const FreeSpaceMeter& space = model.removal().space();
    connect(&live, &LiveData::statusChanged, this, &StatusModel::takeSample);
    connect(&live, &LiveData::statusErrorChanged, this, &StatusModel::errorChanged);
    connect(&live, &LiveData::statusErrorChanged, this, &StatusModel::followPage);
    connect(&space, &FreeSpaceMeter::freeSpaceChanged, this, &StatusModel::takeSpace);
    connect(&space, &FreeSpaceMeter::volumeTotalChanged, this, &StatusModel::takeSpace);
    connect(&model.settings(), &AppSettings::thresholdChanged, this, &StatusModel::watchCpu);
    if (live.status()) {
        takeSample();
    }
    followPage();
}

QString StatusModel::error() const
{
    const auto& error = m_model.live().statusError();
    return error ? shownText(*error) : QString();
}

QList<qreal> StatusModel::cpuSeries() const
{
    return shownSeries(m_model.live().cpuSeries());
}

QList<qreal> StatusModel::memSeries() const
{
    return shownSeries(m_model.live().memSeries());
}

QString StatusModel::chartSpoken() const
{
    return spokenChart(m_model.live().cpuSeries(), m_model.live().memSeries());
}

void StatusModel::appear()
{
    if (m_displays++ == 0) {
        // It warns of a change, not of what it finds.
        m_wasSustained = isSustained();
    }
    m_model.live().retainStatus();
}

void StatusModel::leave()
{
    --m_displays;
    m_model.live().releaseStatus();
}

void StatusModel::retry()
{
    m_model.live().restartStatus();
}

void StatusModel::followPage()
{
    const LiveData& live = m_model.live();
    Page page = Live;
    if (live.statusError()) {
        page = Failed;
    } else if (!live.status()) {
        page = Waiting;
    }
    if (std::exchange(m_page, page) != page) {
        Q_EMIT pageChanged();
    }
}

void StatusModel::takeSample()
{
    takeSpace();
    Q_EMIT seriesChanged();
    const QString footer = statusFooter(m_model.live().status());
    if (m_footer != footer) {
        m_footer = footer;
        Q_EMIT footerChanged();
    }
    // When all that it shows is there.
    followPage();
    watchCpu();
}

void StatusModel::takeSpace()
{
    const FreeSpaceMeter& space = m_model.removal().space();
    if (const auto& status = m_model.live().status()) {
        m_tiles.show(statusTiles(*status, {space.freeSpace(), space.volumeTotal()}));
    }
}

void StatusModel::watchCpu()
{
    if (m_displays == 0) {
        return;
    }
    const bool isNow = isSustained();
    if (!std::exchange(m_wasSustained, isNow) && isNow) {
        m_model.toasts().addToast(
            BannerKind::Warning, sustainedWarning(m_model.settings().threshold()),
            QStringLiteral("Adjust threshold"), [model = &m_model] { model->go("settings"); });
    }
}

bool StatusModel::isSustained() const
{
    return isCpuSustained(m_model.live().cpuSeries(), m_model.settings().threshold());
}

} // namespace zolva

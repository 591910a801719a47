#include "removal/TrashMeter.h"

#include "async/Background.h"
#include "async/Unawaited.h"
#include "removal/TrashMessages.h"

#include <utility>

namespace zolva {

namespace {

using std::chrono::milliseconds;

std::int64_t measureOn(const std::shared_ptr<RemovalDisk>& disk,
                       const std::shared_ptr<std::atomic<bool>>& stop)
{
    return disk->measureTrash(*stop);
}

} // namespace

TrashMeter::TrashMeter(Clock& clock, ToastList& toasts, FreeSpaceMeter& space,
                       std::shared_ptr<RemovalDisk> disk, QObject* parent)
    : QObject(parent), m_clock(clock), m_toasts(toasts), m_space(space), m_disk(std::move(disk))
{}

TrashMeter::~TrashMeter()
{
    if (m_stopMeasure) {
        m_stopMeasure->store(true);
    }
}

void TrashMeter::startMeters()
{
    m_space.start();
    // Watched before it is read, so that no change falls between the two.
    m_watch = std::make_unique<FolderWatch>(m_disk->preparedTrashFolder());
    if (m_watch->descriptor() >= 0) {
        m_notifier =
            std::make_unique<QSocketNotifier>(m_watch->descriptor(), QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
            m_watch->drain();
            noteEvent();
        });
    }
    refreshTrashMeter();
}

void TrashMeter::refreshTrashMeter()
{
    // Whatever is still being measured is overtaken.
    ++m_gen;
    if (m_stopMeasure) {
        m_stopMeasure->store(true);
    }
    const std::optional<std::int64_t> count = m_disk->trashCount();
    const std::int64_t oldCount = std::exchange(m_count, count.value_or(0));
    const bool wasUnreadable = std::exchange(m_unreadable, !count);
    const std::int64_t oldBytes = m_bytes;
    if (!count) {
        m_bytes = 0;
    }
    if (m_count != oldCount || m_unreadable != wasUnreadable || m_bytes != oldBytes) {
        Q_EMIT trashChanged();
    }
    if (count && !m_measuring) {
        unawaited(measure(this));
    }
}

/// One at a time: what overtakes a measure waits only for its early end.
QCoro::Task<> TrashMeter::measure(QPointer<TrashMeter> self)
{
    self->m_measuring = true;
    while (true) {
        const int gen = self->m_gen;
        auto stop = std::make_shared<std::atomic<bool>>(false);
        self->m_stopMeasure = stop;
        const std::int64_t bytes = co_await background(&measureOn, self->m_disk, stop);
        if (!self) {
            co_return;
        }
        if (self->m_unreadable) {
            break;
        }
        if (self->m_gen == gen) {
            self->m_measuring = false;
            if (std::exchange(self->m_bytes, bytes) != bytes) {
                Q_EMIT self->trashChanged();
            }
            co_return;
        }
    }
    self->m_measuring = false;
}

void TrashMeter::trashFolderChanged()
{
    const std::int64_t oldCount = m_count;
    refreshTrashMeter();
    m_space.refreshFreeSpace();
    if (m_count <= oldCount || didJustTrash()) {
        return;
    }
    const QPointer<TrashMeter> self(this);
    m_toasts.addToast(BannerKind::Info, newItemsText(), QString::fromUtf8(emptyTrashAction),
                      [self] {
                          if (self) {
                              Q_EMIT self->emptyTrashWanted();
                          }
                      });
}

void TrashMeter::noteJustTrashed()
{
    m_didJustTrash = true;
    unawaited(endQuiet(this));
}

QCoro::Task<> TrashMeter::endQuiet(QPointer<TrashMeter> self)
{
    co_await self->m_clock.sleep(quietPeriod);
    if (self) {
        self->m_didJustTrash = false;
    }
}

void TrashMeter::noteEvent()
{
    if (std::exchange(m_eventWaits, true)) {
        return;
    }
    milliseconds wait(0);
    if (m_lastEvent) {
        const auto passed = m_clock.steadyNow() - *m_lastEvent;
        wait = changeSpacing - std::chrono::duration_cast<milliseconds>(passed);
    }
    if (wait > milliseconds(0)) {
        unawaited(changeLater(this, wait));
    } else {
        QMetaObject::invokeMethod(this, &TrashMeter::handleEvent, Qt::QueuedConnection);
    }
}

QCoro::Task<> TrashMeter::changeLater(QPointer<TrashMeter> self, milliseconds wait)
{
    co_await self->m_clock.sleep(wait);
    if (self) {
        self->handleEvent();
    }
}

void TrashMeter::handleEvent()
{
    m_eventWaits = false;
    m_lastEvent = m_clock.steadyNow();
    trashFolderChanged();
}

} // namespace zolva

#pragma once

#include "async/Clock.h"
#include "platform/FolderWatch.h"
#include "removal/FreeSpaceMeter.h"
#include "removal/Toasts.h"
#include "removal/runs/RemovalDisk.h"

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QSocketNotifier>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace zolva {

/// How long after the program's own moves new items in the Trash are taken for its own.
inline constexpr std::chrono::seconds quietPeriod{12};
/// Changes of the Trash folder that come closer together are handled as one: a run that moves
/// thousands must not list the Trash for each.
inline constexpr std::chrono::milliseconds changeSpacing{100};

/// How much lies in the Trash. The count is read at once, the size in the background; only the
/// newest measure counts, and an overtaken one ends early. Notices what others put there. Main
/// thread; clock, toasts and the other meter outlive it.
class TrashMeter : public QObject
{
    Q_OBJECT

public:
    TrashMeter(Clock& clock, ToastList& toasts, FreeSpaceMeter& space,
               std::shared_ptr<RemovalDisk> disk, QObject* parent = nullptr);
    ~TrashMeter() override;

    [[nodiscard]] std::int64_t trashBytes() const { return m_bytes; }
    /// Entries of the folder itself, hidden ones too.
    [[nodiscard]] std::int64_t trashCount() const { return m_count; }
    /// The last read failed; count and bytes are 0 then.
    [[nodiscard]] bool trashUnreadable() const { return m_unreadable; }
    /// New items in the Trash are this program's own.
    [[nodiscard]] bool didJustTrash() const { return m_didJustTrash || m_ownMoves > 0; }
    /// A measure runs or waits to run.
    [[nodiscard]] bool isMeasuring() const { return m_measuring; }

    /// Reads both meters, and from then on at every change of the Trash folder. Once.
    void startMeters();
    void refreshTrashMeter();
    /// The folder has changed: reads both meters; more items than before, not this program's own,
    /// are told by a toast.
    void trashFolderChanged();
    /// Items of this program have just got there: quiet for `quietPeriod`. A later call does not
    /// lengthen an earlier one's time; the first to end, ends it.
    void noteJustTrashed();

Q_SIGNALS:
    void trashChanged(); ///< bytes, count or whether it can be read
    /// The toast's offer to empty the Trash was taken up.
    void emptyTrashWanted();

private:
    friend class OwnMoves;
    static QCoro::Task<> measure(QPointer<TrashMeter> self);
    static QCoro::Task<> changeLater(QPointer<TrashMeter> self, std::chrono::milliseconds wait);
    static QCoro::Task<> endQuiet(QPointer<TrashMeter> self);
    void noteEvent();
    void handleEvent();

    Clock& m_clock;
    ToastList& m_toasts;
    FreeSpaceMeter& m_space;
    std::shared_ptr<RemovalDisk> m_disk;
    std::unique_ptr<FolderWatch> m_watch;
    std::unique_ptr<QSocketNotifier> m_notifier; ///< of the watch, and gone before it
    std::int64_t m_bytes = 0;
    std::int64_t m_count = 0;
    bool m_unreadable = false;
    bool m_didJustTrash = false;
    int m_ownMoves = 0;
    int m_gen = 0; ///< of the measure
    bool m_measuring = false;
    std::shared_ptr<std::atomic<bool>> m_stopMeasure; ///< of the one that runs
    bool m_eventWaits = false;
    std::optional<std::chrono::steady_clock::time_point> m_lastEvent;
};

/// As long as it lives, what comes into the Trash is this program's own: it stands around the moves
/// of a run, which may take longer than the quiet period.
class OwnMoves
{
public:
    explicit OwnMoves(TrashMeter& meter) : m_meter(&meter) { ++meter.m_ownMoves; }
    ~OwnMoves()
    {
        if (m_meter) {
            --m_meter->m_ownMoves;
        }
    }
    OwnMoves(const OwnMoves&) = delete;
    OwnMoves& operator=(const OwnMoves&) = delete;

private:
    QPointer<TrashMeter> m_meter;
};

} // namespace zolva
